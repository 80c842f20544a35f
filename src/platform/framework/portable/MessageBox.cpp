#include <utility>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/portable/NativeWindow.h"

bool HasDisplay() {
    return false;
}

int AfxMessageBox(const std::u16string& text, unsigned type) {
    DialogDriver* const driver = GetDialogDriver();
    if (driver == nullptr) return 1;
    // A message box has the focus while it is open, and an edit that loses the focus reports it.
    NativeWindow* const before = std::exchange(focusedWindow, nullptr);
    if (before != nullptr && before->Kind == ControlKind::Edit) before->Tell(EditFocusLost);
    const int button = driver->ShowMessage(text, type);
    if (before != nullptr && before->Enabled) focusedWindow = before;
    return button;
}

std::optional<std::u16string> AskForFile(const FileQuestion& question) {
    DialogDriver* const driver = GetDialogDriver();
    return driver == nullptr ? std::nullopt : driver->ChooseFile(question);
}
