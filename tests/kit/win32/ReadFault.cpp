#include "kit/ReadFault.h"

#include "platform/framework/win32/Api.h"

// The file's handle is closed behind its reader's back: handles are small numbers in steps of four.
bool BreakReading(const std::filesystem::path& path) {
    constexpr std::intptr_t Step = 4;
    constexpr std::intptr_t Last = 4096;
    const std::u16string name = path.filename().u16string();
    for (std::intptr_t number = Step; number < Last; number += Step) {
        const HANDLE handle = reinterpret_cast<HANDLE>(number);
        std::u16string found(1024, u'\0');
        if (GetFileType(handle) != FILE_TYPE_DISK) continue;
        found.resize(GetFinalPathNameByHandleW(handle, W(found.data()), 1024, 0));
        if (std::filesystem::path(found).filename() == name) return CloseHandle(handle) != FALSE;
    }
    return false;
}

// Nothing here can be opened and not read; what can't be opened has to do.
std::u16string UnreadableFile() {
    return u"NUL";
}
