#include "view/dialog/MessageBox.h"

#include <QMessageBox>
#include <QPushButton>
#include <iterator>
#include <vector>

#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

struct Button {
    int Result;
    QMessageBox::StandardButton Standard;
};
constexpr Button Ok = {1, QMessageBox::Ok};
constexpr Button Cancel = {2, QMessageBox::Cancel};
constexpr Button Abort = {3, QMessageBox::Abort};
constexpr Button Retry = {4, QMessageBox::Retry};
constexpr Button Ignore = {5, QMessageBox::Ignore};
constexpr Button Yes = {6, QMessageBox::Yes};
constexpr Button No = {7, QMessageBox::No};

// The buttons of a message, in their order; those of an unknown number are OK alone.
std::vector<Button> ButtonsOf(unsigned type) {
    const std::vector<Button> sets[] = {{Ok},      {Ok, Cancel},   {Abort, Retry, Ignore}, {Yes, No, Cancel},
                                        {Yes, No}, {Retry, Cancel}};
    const unsigned number = type & 0xF;
    return sets[number < std::size(sets) ? number : 0];
}

QMessageBox::Icon IconOf(unsigned type) {
    constexpr QMessageBox::Icon Icons[] = {QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question,
                                           QMessageBox::Warning, QMessageBox::Information};
    const unsigned number = type >> 4 & 0xF;
    return number < std::size(Icons) ? Icons[number] : QMessageBox::NoIcon;
}

}  // namespace

int ShowMessageBox(QWidget* parent, const std::u16string& title, const std::u16string& text, unsigned type) {
    const std::vector<Button> buttons = ButtonsOf(type);
    QMessageBox box(IconOf(type), ToQt(title), ToQt(text), QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    for (const Button& button : buttons) {
        QPushButton* const added = box.addButton(button.Standard);
        const auto index = static_cast<unsigned>(&button - buttons.data());
        if (index == (type >> 8 & 0xF)) box.setDefaultButton(added);
    }
    const int pressed = box.exec();
    for (const Button& button : buttons) {
        if (button.Standard == pressed) return button.Result;
    }
    return buttons.size() == 1 ? buttons.front().Result : Cancel.Result;
}

}  // namespace kelvarin::view
