#include <algorithm>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/Module.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

// A driver shows no window. What a real one does to the dialog is done all the same: it has the focus while
// it is open, and an edit that loses the focus reports it.
int DriveMessage(DialogDriver& driver, const std::u16string& text, unsigned type) {
    const CWnd focus = CWnd::GetFocus();
    const bool isEdit = focus.Exists() && focus.Handle->Kind == ControlKind::Edit;
    if (isEdit) ::SetFocus(nullptr);
    const int button = driver.ShowMessage(text, type);
    if (isEdit && focus.IsWindowEnabled()) CWnd(focus).SetFocus();
    return button;
}

}  // namespace

bool HasDisplay() {
    return true;
}

int AfxMessageBox(const std::u16string& text, unsigned type) {
    if (DialogDriver* const driver = GetDialogDriver()) return DriveMessage(*driver, text, type);
    const ModuleState* const module = GetCurrentModule();
    const std::u16string title = module == nullptr ? std::u16string() : module->CurrentAppName;
    // No window here is active if the user has just switched to another program.
    const HWND active = GetActiveWindow();
    return MessageBoxW(active != nullptr ? active : ModalWindow(), W(text), W(title), type);
}

std::optional<std::u16string> AskForFile(const FileQuestion& asked) {
    if (DialogDriver* const driver = GetDialogDriver()) return driver->ChooseFile(asked);
    std::u16string parts = asked.Filter + u"||";
    std::replace(parts.begin(), parts.end(), u'|', u'\0');
    constexpr DWORD Longest = 32768;
    std::u16string path(Longest, u'\0');
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = asked.Owner->GetNative().Window;
    question.lpstrFilter = W(parts);
    question.lpstrFile = W(path.data());
    question.nMaxFile = Longest;
    question.lpstrInitialDir = asked.Folder.empty() ? nullptr : W(asked.Folder);
    question.lpstrTitle = W(asked.Title);
    // The system wants the extension without the pattern around it.
    question.lpstrDefExt = W(asked.DefaultExtension) + asked.DefaultExtension.rfind(u'.') + 1;
    question.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
    if (!GetOpenFileNameW(&question)) return std::nullopt;
    return std::u16string(path.c_str());
}
