#include "platform/framework/File.h"

#include <algorithm>

#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"

namespace {

CFileException::ECause CauseOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return CFileException::fileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return CFileException::badPath;
        case ERROR_TOO_MANY_OPEN_FILES:
            return CFileException::tooManyOpenFiles;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
            return CFileException::accessDenied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return CFileException::sharingViolation;
        case ERROR_SEEK:
        case ERROR_NEGATIVE_SEEK:
        case ERROR_SEEK_ON_DEVICE:
            return CFileException::badSeek;
        case ERROR_CRC:
        case ERROR_READ_FAULT:
        case ERROR_WRITE_FAULT:
        case ERROR_IO_DEVICE:
            return CFileException::hardIO;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return CFileException::diskFull;
        default:
            return CFileException::genericException;
    }
}

void Fill(CFileException* error, DWORD number, const std::u16string& path) {
    error->Cause = CauseOf(number);
    error->OsError = static_cast<long>(number);
    error->FileName = path;
}

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
        Fill(error, GetLastError(), Path);
        return false;
    }
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        Fill(error, ERROR_SEEK_ON_DEVICE, Path);
        return false;
    }
    Handle = reinterpret_cast<std::intptr_t>(handle);
    return true;
}

std::size_t CFile::Read(void* data, std::size_t size) {
    DWORD count = 0;
    if (!ReadFile(HandleOf(Handle), data, CallSize(size), &count, nullptr)) RaiseLastError();
    return count;
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
    if (handle != Closed && !CloseHandle(HandleOf(handle))) RaiseLastError();
}

void CFile::Abort() noexcept {
    if (IsOpen()) CloseHandle(HandleOf(Handle));
    Handle = Closed;
}

void CFile::RaiseLastError() const {
    const DWORD number = GetLastError();
    auto* error = new CFileException;
    Fill(error, number, Path);
    throw error;
}

std::u16string DescribeFileError(const CFileException& error) {
    if (error.Cause == CFileException::sharingViolation) return u"in use by another program";
    if (error.Cause == CFileException::badSeek) return u"not a regular file";
    // In the words of the other systems and of the rest of the program, whatever the system's language.
    if (error.Cause == CFileException::fileNotFound) return u"No such file or directory";
    constexpr DWORD Capacity = 512;
    wchar_t text[Capacity];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(error.OsError), 0, text, Capacity, nullptr);
    std::u16string_view said = TrimWhiteSpace({FromW(text), length});
    if (!said.empty() && said.back() == u'.') said.remove_suffix(1);
    return std::u16string(said);
}

void ReplaceFile(const std::u16string& path, const std::string& bytes) {
    const std::u16string temporary = path + u".tmp" + Utf8ToUtf16(std::to_string(GetCurrentProcessId()));
    CFile file;
    auto* error = new CFileException;
    if (!file.Open(temporary.c_str(), CFile::modeWrite | CFile::modeCreate, error)) throw error;
    error->Delete();
    try {
        file.Write(bytes.data(), bytes.size());
        file.Flush();
        file.Close();
    } catch (CFileException*) {
        file.Abort();
        DeleteFileW(W(ApiPath(temporary)));
        throw;
    }
    // One step, unlike ReplaceFileW, which can fail between its two renames.
    if (!MoveFileExW(W(ApiPath(temporary)), W(ApiPath(path)),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        auto* failure = new CFileException;
        Fill(failure, GetLastError(), path);
        DeleteFileW(W(ApiPath(temporary)));
        throw failure;
    }
}
