#include "platform/framework/DialogDriver.h"

bool HasDisplay() {
    return false;
}

int AfxMessageBox(const std::u16string& text, unsigned type) {
    DialogDriver* const driver = GetDialogDriver();
    return driver == nullptr ? 1 : driver->ShowMessage(text, type);
}

std::optional<std::u16string> AskForFile(const std::u16string& title, const std::u16string& filter) {
    DialogDriver* const driver = GetDialogDriver();
    return driver == nullptr ? std::nullopt : driver->ChooseFile(title, filter);
}
