#include "view/WindowUser.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <sstream>

#include "platform/framework/Dialog.h"
#include "platform/framework/Text.h"
#include "view/dialog/DialogWindow.h"

namespace {

constexpr int PreviewId = 1026;
constexpr int SignalsId = 1021;

QWindow* FrontHandle() {
    return FrontWindow()->window()->windowHandle();
}

QTreeView* ListOf(int id) {
    return dynamic_cast<QTreeView*>(WidgetOf(id));
}

// On a display a window gets the keys a little after it is shown, or after the one above it has gone.
void AwaitKeys() {
    QWidget* const window = FrontWindow()->window();
    if (QApplication::activePopupWidget() != nullptr || window->isActiveWindow()) return;
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

void ReplaceText(const QString& text) {
    PressKey(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) PressKey(Qt::Key_Delete);
    TypeText(text);
}

bool Click(int id) {
    QWidget* const widget = WidgetOf(id);
    if (widget == nullptr || !widget->isEnabled()) return false;
    ClickAt(*widget, {8, widget->height() / 2});
    return true;
}

bool Select(int id, int index) {
    auto* const combo = dynamic_cast<QComboBox*>(WidgetOf(id));
    if (combo == nullptr || !combo->isEnabled()) return false;
    // The field first, as the list drops down at a press.
    ClickAt(*combo, {8, combo->height() / 2});
    if (QApplication::activePopupWidget() == nullptr) PressKey(Qt::Key_F4);
    if (QApplication::activePopupWidget() == nullptr) return false;
    PressKey(Qt::Key_Home);
    for (int i = 0; i < index; ++i) PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Return);
    return true;
}

// The digits of a date or a time, section by section.
bool PickDigits(int id, const std::string& value) {
    auto* const picker = dynamic_cast<QDateTimeEdit*>(WidgetOf(id));
    if (picker == nullptr || !picker->isEnabled()) return false;
    ClickAt(*picker, {8, picker->height() / 2});
    picker->setSelectedSection(picker->sectionAt(0));  // as the tab key does
    for (const char c : value) {
        if (c >= '0' && c <= '9') TypeText(QString(QChar(c)));
    }
    return true;
}

bool ShowPage(int index) {
    auto* const tabs = FrontWindow()->findChild<QTabBar*>();
    if (tabs == nullptr || index < 0 || index >= tabs->count()) return false;
    ClickAt(*tabs, tabs->tabRect(index).center());
    return true;
}

QRect CellOf(const QTreeView& list, int row, int column) {
    return list.visualRect(list.model()->index(row, column));
}

bool ClickCell(int row, int column, int x, bool isDouble) {
    QTreeView* const list = ListOf(SignalsId);
    if (list == nullptr || row >= list->model()->rowCount()) return false;
    const QRect cell = CellOf(*list, row, column);
    ClickAt(*list->viewport(), {cell.left() + x, cell.center().y()}, isDouble);
    return true;
}

constexpr int OnCheckBox = 6;
constexpr int BesideCheckBox = 40;

bool RenameSignal(int row, const QString& name) {
    if (!ClickCell(row, 0, BesideCheckBox, true)) return false;
    if (dynamic_cast<QLineEdit*>(FrontWindow()->focusWidget()) == nullptr) return false;
    ReplaceText(name);
    PressKey(Qt::Key_Return);
    return true;
}

// The entry that begins as the text does for longest.
int ClosestEntry(const QListWidget& list, const QString& text) {
    int best = -1;
    qsizetype longest = 0;
    for (int i = 0; i < list.count(); ++i) {
        const QString entry = list.item(i)->text();
        qsizetype length = 0;
        while (length < std::min(entry.size(), text.size()) &&
               entry[length].toLower() == text[length].toLower())
            ++length;
        if (length > longest) best = i;
        longest = std::max(longest, length);
    }
    return best;
}

bool ChooseType(int row, const QString& type) {
    if (!ClickCell(row, 1, BesideCheckBox, true)) return false;
    auto* const list = dynamic_cast<QListWidget*>(QApplication::activePopupWidget());
    if (list == nullptr) return false;
    const int entry = ClosestEntry(*list, type);
    if (entry < 0) return false;
    ClickAt(*list->viewport(), list->visualItemRect(list->item(entry)).center());
    return true;
}

bool DragColumn(int column, int width) {
    QTreeView* const list = ListOf(PreviewId);
    if (list == nullptr || column >= list->model()->columnCount()) return false;
    QHeaderView& header = *list->header();
    const int edge = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
    const int by = width - header.sectionSize(column);
    QWidget& area = *header.viewport();
    const auto at = [&](int x) { return area.mapTo(area.window(), QPoint(x, area.height() / 2)); };
    QWindow* const window = FrontHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, at(edge));
    QTest::mouseMove(window, at(edge + by / 2));
    QTest::mouseMove(window, at(edge + by));
    QTest::mouseRelease(window, Qt::LeftButton, {}, at(edge + by));
    return true;
}

bool Leave() {
    QTreeView* const list = ListOf(PreviewId) != nullptr ? ListOf(PreviewId) : ListOf(SignalsId);
    if (list == nullptr) return false;
    ClickAt(*list->viewport(), {3, list->viewport()->height() - 3});
    return true;
}

bool Type(int id, const QString& text) {
    QWidget* const widget = WidgetOf(id);
    if (widget == nullptr || !widget->isEnabled()) return false;
    if (FocusedId() != id) ClickAt(*widget, {8, widget->height() / 2});
    if (FocusedId() == id) ReplaceText(text);
    return true;
}

}  // namespace

void WindowUser::RunModal(CDialog& dialog) {
    QTimer::singleShot(0, [&] {
        AwaitKeys();
        Work(dialog);
        if (!dialog.IsEnded()) FrontWindow()->close();
    });
    QtDialogDriver::RunModal(dialog);
}

int WindowUser::ShowMessage(const std::u16string& text, unsigned type) {
    Messages.push_back(Utf16ToUtf8(text));
    QTimer::singleShot(0, [] { PressKey(Qt::Key_Return); });
    return QtDialogDriver::ShowMessage(text, type);
}

std::optional<std::u16string> WindowUser::ChooseFile(const FileQuestion& question) {
    QTimer::singleShot(0, [this] {
        if (!NextFile) return PressKey(Qt::Key_Escape);
        auto& dialog = dynamic_cast<QFileDialog&>(*FrontWindow());
        dialog.findChild<QLineEdit*>("fileNameEdit")->setFocus();
        ReplaceText(QString::fromStdString(*NextFile));
        PressKey(Qt::Key_Return);
        // A folder is offered below the name that was typed.
        if (dialog.isVisible()) PressKey(Qt::Key_Return);
    });
    return QtDialogDriver::ChooseFile(question);
}

QWidget* FrontWindow() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
    return QApplication::activeModalWidget();
}

QWidget* WidgetOf(int id) {
    for (QWidget* const widget :
         QApplication::activeModalWidget()->findChildren<QWidget*>(QString::number(id))) {
        if (widget->isVisible()) return widget;
    }
    return nullptr;
}

int FocusedId() {
    QWidget* const window = QApplication::activeModalWidget();
    for (QWidget* widget = window == nullptr ? nullptr : window->focusWidget(); widget != nullptr;
         widget = widget->parentWidget()) {
        const int id = widget->objectName().toInt();
        if (id > 0) return id;
    }
    return 0;
}

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    AwaitKeys();
    QTest::keyClick(FrontHandle(), key, modifiers);
}

void TypeText(const QString& text) {
    AwaitKeys();
    for (const QChar c : text) {
        QTest::sendKeyEvent(QTest::Click, FrontHandle(), Qt::Key_unknown, QString(c), Qt::NoModifier);
        QCoreApplication::processEvents();
    }
}

void ClickAt(QWidget& widget, QPoint point, bool isDouble) {
    AwaitKeys();
    // As a user does by the wheel on a low screen.
    for (QWidget* outer = widget.parentWidget(); outer != nullptr; outer = outer->parentWidget()) {
        if (auto* const area = dynamic_cast<QScrollArea*>(outer)) area->ensureWidgetVisible(&widget, 0, 0);
    }
    QWindow* const window = widget.window()->windowHandle();
    const QPoint place = widget.mapTo(widget.window(), point);
    if (isDouble) {
        QTest::mouseDClick(window, Qt::LeftButton, {}, place);
    } else {
        QTest::mouseClick(window, Qt::LeftButton, {}, place);
    }
}

bool DoStep(const std::string& step) {
    std::istringstream words(step);
    std::string verb;
    std::string rest;
    int number = 0;
    words >> verb;
    if (verb == "ok") return Click(1);
    if (verb == "cancel") return Click(2);
    if (verb == "leave") return Leave();
    if (!(words >> number)) return false;
    words.get();
    std::getline(words, rest);
    const QString text = QString::fromStdString(rest);
    if (verb == "click") return Click(number);
    if (verb == "type") return Type(number, text);
    if (verb == "select") return Select(number, text.toInt());
    if (verb == "date" || verb == "time") return PickDigits(number, rest);
    if (verb == "page") return ShowPage(number);
    if (verb == "check") return ClickCell(number, 0, OnCheckBox, false);
    if (verb == "name") return RenameSignal(number, text);
    if (verb == "datatype") return ChooseType(number, text);
    if (verb == "width") return DragColumn(number, text.toInt());
    return false;
}
