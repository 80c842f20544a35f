#include <algorithm>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/Module.h"
#include "platform/framework/win32/Api.h"

bool HasDisplay() {
    return true;
}

int AfxMessageBox(const std::u16string& text, unsigned type) {
    if (DialogDriver* const driver = GetDialogDriver()) return driver->ShowMessage(text, type);
    const ModuleState* const module = GetCurrentModule();
    const std::u16string title = module == nullptr ? std::u16string() : module->CurrentAppName;
    return MessageBoxW(GetActiveWindow(), W(text), W(title), type);
}

std::optional<std::u16string> AskForFile(const std::u16string& title, const std::u16string& filter) {
    if (DialogDriver* const driver = GetDialogDriver()) return driver->ChooseFile(title, filter);
    std::u16string parts = filter + u"||";
    std::replace(parts.begin(), parts.end(), u'|', u'\0');
    constexpr DWORD Longest = 32768;
    std::u16string path(Longest, u'\0');
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = GetActiveWindow();
    question.lpstrFilter = W(parts);
    question.lpstrFile = W(path.data());
    question.nMaxFile = Longest;
    question.lpstrTitle = W(title);
    question.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
    if (!GetOpenFileNameW(&question)) return std::nullopt;
    return std::u16string(path.c_str());
}
