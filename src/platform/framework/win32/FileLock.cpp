#include "platform/framework/FileLock.h"

#include "platform/framework/win32/Api.h"

FileLock::FileLock(const std::u16string& path)
    : Handle(reinterpret_cast<std::intptr_t>(CreateFileW(W(ApiPath(path)), GENERIC_READ | GENERIC_WRITE,
                                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                         OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))) {
    if (!IsHeld()) return;
    OVERLAPPED place{};
    LockFileEx(reinterpret_cast<HANDLE>(Handle), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place);
}

FileLock::~FileLock() {
    if (IsHeld()) CloseHandle(reinterpret_cast<HANDLE>(Handle));
}

void MakeFolders(const std::u16string& path) {
    constexpr const char16_t* Separators = u"\\/";
    for (std::size_t at = path.find_first_of(Separators, 1); at != std::u16string::npos;
         at = path.find_first_of(Separators, at + 1)) {
        CreateDirectoryW(W(ApiPath(path.substr(0, at))), nullptr);
    }
}
