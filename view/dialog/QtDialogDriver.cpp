#include "view/dialog/QtDialogDriver.h"

#include <QFileDialog>

#include "platform/framework/Module.h"
#include "platform/framework/portable/DialogFront.h"
#include "view/dialog/Appearance.h"
#include "view/dialog/DialogWindow.h"
#include "view/dialog/MessageBox.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

// "description|pattern", repeated, as Qt has it: "description (pattern)", a line break between two.
QString FiltersOf(const std::u16string& filter) {
    const QStringList parts = ToQt(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
        filters << (parts[i].endsWith(patterns) ? parts[i] : parts[i] + patterns);
    }
    return filters.join(";;");
}

}  // namespace

void QtDialogDriver::PrepareDialog() {
    if (const ModuleState* const module = GetCurrentModule()) SetDialogUnits(MeasureDialogs(*module));
    UseColorsOfPalette();
}

void QtDialogDriver::RunModal(CDialog& dialog) {
    DialogWindow window(dialog, Front());
    Open.push_back(&window);
    window.exec();
    Open.pop_back();
}

int QtDialogDriver::ShowMessage(const std::u16string& text, unsigned type) {
    // What the message is about must be seen below it.
    if (!Open.empty()) Open.back()->ShowControls();
    const ModuleState* const module = GetCurrentModule();
    const std::u16string title = module == nullptr ? std::u16string() : module->CurrentAppName;
    const int button = ShowMessageBox(Front(), title, text, type);
    // Where no window manager does it, keys would reach nothing.
    if (!Open.empty()) Open.back()->activateWindow();
    return button;
}

std::optional<std::u16string> QtDialogDriver::ChooseFile(const FileQuestion& question) {
    QFileDialog dialog(Front(), ToQt(question.Title), ToQt(question.Folder), FiltersOf(question.Filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const std::size_t dot = question.DefaultExtension.rfind(u'.');
    if (dot != std::u16string::npos) dialog.setDefaultSuffix(ToQt(question.DefaultExtension.substr(dot + 1)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return FromQt(dialog.selectedFiles().front());
}

QWidget* QtDialogDriver::Front() const {
    return Open.empty() ? Parent : Open.back();
}

}  // namespace kelvarin::view
