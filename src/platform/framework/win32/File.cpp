#include "platform/framework/File.h"
#include "platform/framework/FileError.h"

#include <algorithm>
#include <utility>

#include "platform/framework/Path.h"
#include "platform/framework/win32/Api.h"

namespace {

HANDLE HandleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

// One call moves at most so much; the calls count in 32 bits.
DWORD CallSize(std::size_t size) {
    constexpr std::size_t Most = std::size_t{1} << 30;
    return static_cast<DWORD>(std::min(size, Most));
}

}  // namespace

CFile::~CFile() {
    CFile::Abort();
}

bool CFile::Open(const char16_t* path, unsigned flags, CFileException* error) {
    Abort();
    Path = path;
    const DWORD access = (flags & modeWrite) != 0 ? GENERIC_WRITE : GENERIC_READ;
    const DWORD share =
        (flags & shareExclusive) != 0 ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(W(ApiPath(Path)), access, share, nullptr,
                                      (flags & modeCreate) != 0 ? CREATE_ALWAYS : OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        FillFileError(error, GetLastError(), Path);
        return false;
    }
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        FillFileError(error, ERROR_SEEK_ON_DEVICE, Path);
        return false;
    }
    Handle = reinterpret_cast<std::intptr_t>(handle);
    return true;
}

void CFile::Share(const CFile& other) {
    Abort();
    Handle = other.Handle;
    Path = other.Path;
    IsShared = true;
}

std::size_t CFile::Read(void* data, std::size_t size) {
    DWORD count = 0;
    if (!ReadFile(HandleOf(Handle), data, CallSize(size), &count, nullptr)) RaiseLastError();
    return count;
}

std::size_t CFile::ReadAt(std::uint64_t position, void* data, std::size_t size) const {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(position);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    DWORD count = 0;
    if (ReadFile(HandleOf(Handle), data, CallSize(size), &count, &place)) return count;
    if (GetLastError() != ERROR_HANDLE_EOF) RaiseLastError();
    return 0;
}

void CFile::Write(const void* data, std::size_t size) {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        DWORD count = 0;
        if (!WriteFile(HandleOf(Handle), next, CallSize(size), &count, nullptr)) RaiseLastError();
        next += count;
        size -= count;
    }
}

void CFile::Seek(std::uint64_t position) {
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(position);
    if (!SetFilePointerEx(HandleOf(Handle), place, nullptr, FILE_BEGIN)) RaiseLastError();
}

std::uint64_t CFile::GetLength() const {
    LARGE_INTEGER length;
    if (!GetFileSizeEx(HandleOf(Handle), &length)) RaiseLastError();
    return static_cast<std::uint64_t>(length.QuadPart);
}

void CFile::Flush() {
    if (!FlushFileBuffers(HandleOf(Handle))) RaiseLastError();
}

void CFile::Close() {
    const std::intptr_t handle = Handle;
    Handle = Closed;
    if (std::exchange(IsShared, false)) return;
    if (handle != Closed && !CloseHandle(HandleOf(handle))) RaiseLastError();
}

void CFile::Abort() noexcept {
    if (IsOpen() && !IsShared) CloseHandle(HandleOf(Handle));
    Handle = Closed;
    IsShared = false;
}

void CFile::RaiseLastError() const {
    RaiseFileError(GetLastError(), Path);
}

std::optional<FileIdentity> IdentityOf(const std::u16string& path) {
    const HANDLE handle = CreateFileW(W(ApiPath(path)), 0, ShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    BY_HANDLE_FILE_INFORMATION about{};
    const bool isKnown = GetFileInformationByHandle(handle, &about) != 0;
    CloseHandle(handle);
    if (!isKnown) return std::nullopt;
    return FileIdentity{about.dwVolumeSerialNumber,
                        std::uint64_t{about.nFileIndexHigh} << 32 | about.nFileIndexLow};
}
