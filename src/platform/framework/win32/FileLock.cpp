#include "platform/framework/FileLock.h"

#include "platform/framework/FileError.h"
#include "platform/framework/win32/Api.h"

namespace {

// Milliseconds.
constexpr DWORD PauseOfLock = 2;
constexpr ULONGLONG LongestWait = 5000;

// False, with the last error set, if another holder keeps it too long.
bool LockInTime(HANDLE handle) {
    for (const ULONGLONG begin = GetTickCount64();;) {
        OVERLAPPED place{};
        if (LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
            return true;
        // A file system without locks can't tell another holder; that is no reason to refuse the file.
        if (GetLastError() != ERROR_LOCK_VIOLATION && GetLastError() != ERROR_IO_PENDING) return true;
        if (GetTickCount64() - begin > LongestWait) return false;
        Sleep(PauseOfLock);
    }
}

}  // namespace

FileLock::FileLock(const std::u16string& path, Make make) {
    const HANDLE handle =
        CreateFileW(W(ApiPath(path)), GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    make == Make::IfMissing ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE && LockInTime(handle)) {
        Handle = reinterpret_cast<std::intptr_t>(handle);
        return;
    }
    FillFileError(&Error, handle == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_LOCK_VIOLATION, path);
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
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
