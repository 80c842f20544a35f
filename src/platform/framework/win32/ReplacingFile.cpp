#include "platform/framework/ReplacingFile.h"

#include <array>
#include <random>
#include <vector>

#include "platform/framework/FileError.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"
// What follows needs the types of the first.
#include <aclapi.h>

namespace {

constexpr std::u16string_view Mark = u".kelvarin-";

// 0, or the number of the error of the call that returned this.
DWORD ErrorUnless(BOOL done) {
    return done ? ERROR_SUCCESS : GetLastError();
}

// The path of the file that a link leads to; the path itself if it is none.
std::u16string FollowLinks(HANDLE file, const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(W(ApiPath(path)));
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const DWORD size = GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED);
    std::u16string target(size, 0);
    target.resize(GetFinalPathNameByHandleW(file, W(target.data()), size, FILE_NAME_NORMALIZED));
    return target.empty() ? path : target;
}

std::u16string NewEnding() {
    std::random_device random;
    std::u16string ending = Utf8ToUtf16(std::to_string(GetCurrentProcessId())) + u"-";
    for (int digit = 0; digit < 16; ++digit) ending += u"0123456789abcdef"[random() % 16];
    return ending;
}

DWORD WriteAll(HANDLE file, const char* next, std::size_t size) {
    constexpr std::size_t MostAtOnce = std::size_t{1} << 30;
    while (size > 0) {
        DWORD count = 0;
        if (!WriteFile(file, next, static_cast<DWORD>(std::min(size, MostAtOnce)), &count, nullptr))
            return GetLastError();
        next += count;
        size -= count;
    }
    return ERROR_SUCCESS;
}

DWORD CopyContent(HANDLE from, HANDLE to) {
    const LARGE_INTEGER start{};
    if (!SetFilePointerEx(from, start, nullptr, FILE_BEGIN) || !SetEndOfFile(to)) return GetLastError();
    std::vector<char> block(1 << 16);
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(from, block.data(), static_cast<DWORD>(block.size()), &count, nullptr))
            return GetLastError();
        if (count == 0) return ErrorUnless(FlushFileBuffers(to));
        if (const DWORD failure = WriteAll(to, block.data(), count); failure != ERROR_SUCCESS) return failure;
    }
}

// Gives a file the access list and the attributes of another one.
DWORD TakeOver(const std::u16string& from, const std::u16string& to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR about = nullptr;
    std::u16string source = ApiPath(from);
    std::u16string target = ApiPath(to);
    DWORD failure = GetNamedSecurityInfoW(W(source.data()), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                          nullptr, nullptr, &list, nullptr, &about);
    if (failure != ERROR_SUCCESS) return failure;
    failure = SetNamedSecurityInfoW(W(target.data()), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, list, nullptr);
    LocalFree(about);
    const DWORD attributes = GetFileAttributesW(W(source));
    if (failure == ERROR_SUCCESS && attributes != INVALID_FILE_ATTRIBUTES)
        failure = ErrorUnless(SetFileAttributesW(W(target), attributes));
    return failure;
}

}  // namespace

struct ReplacingFile::Replacement {
    ~Replacement() {
        for (const HANDLE file : {Old, New}) {
            if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        }
    }

    // All return ERROR_SUCCESS or the number of a failure.
    DWORD Open(const std::u16string& path);
    DWORD MakeNew(Writers writers);
    DWORD MakeNewAt(const std::u16string& path);
    bool HasOthers() const;
    DWORD Finish();

    std::u16string Target;
    std::u16string NewPath;
    HANDLE Old = INVALID_HANDLE_VALUE;  // the file that is replaced, open for writing
    HANDLE New = INVALID_HANDLE_VALUE;
    bool IsBeside = true;
};

// Whoever may not write the file may not replace it either, though its folder would allow that.
DWORD ReplacingFile::Replacement::Open(const std::u16string& path) {
    Target = path;
    Old = CreateFileW(W(ApiPath(path)), GENERIC_WRITE, ShareAll, nullptr, OPEN_EXISTING,
                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (Old == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : GetLastError();
    if (GetFileType(Old) != FILE_TYPE_DISK) return ERROR_SEEK_ON_DEVICE;
    Target = FollowLinks(Old, path);
    return ERROR_SUCCESS;
}

DWORD ReplacingFile::Replacement::MakeNewAt(const std::u16string& path) {
    NewPath = path;
    New = CreateFileW(W(ApiPath(path)), GENERIC_READ | GENERIC_WRITE | DELETE, ShareAll, nullptr, CREATE_NEW,
                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return New == INVALID_HANDLE_VALUE ? GetLastError() : RemoveWithHandle(New, true);
}

DWORD ReplacingFile::Replacement::MakeNew(Writers writers) {
    if (writers == Writers::One && HasOthers()) return ERROR_SHARING_VIOLATION;
    const DWORD refusal = MakeNewAt(Target + std::u16string(Mark) + NewEnding());
    IsBeside = refusal == ERROR_SUCCESS;
    const bool isRefused = refusal == ERROR_ACCESS_DENIED || refusal == ERROR_WRITE_PROTECT;
    if (IsBeside || !isRefused || Old == INVALID_HANDLE_VALUE) return refusal;
    std::array<char16_t, MAX_PATH + 1> folder{};
    if (GetTempPathW(MAX_PATH, W(folder.data())) == 0) return GetLastError();
    return MakeNewAt(folder.data() + (u"kelvarin" + std::u16string(Mark)) + NewEnding());
}

// The system removes such files with the process that made them, so that each is of a living one.
bool ReplacingFile::Replacement::HasOthers() const {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(W(ApiPath(Target + std::u16string(Mark) + u"*")), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return true;
}

DWORD ReplacingFile::Replacement::Finish() {
    if (!FlushFileBuffers(New)) return GetLastError();
    const bool isNew = Old == INVALID_HANDLE_VALUE;
    DWORD failure = RemoveWithHandle(New, !IsBeside);
    if (!isNew && (!IsBeside || (failure == ERROR_SUCCESS && TakeOver(Target, NewPath) != ERROR_SUCCESS))) {
        failure = CopyContent(New, Old);
        RemoveWithHandle(New, true);
        return failure;
    }
    if (failure == ERROR_SUCCESS) {
        // Pending own handle would keep the old file from being replaced.
        if (!isNew) CloseHandle(Old);
        Old = INVALID_HANDLE_VALUE;
        // One step, unlike ReplaceFileW, which can fail between its two renames.
        failure = ErrorUnless(MoveFileExW(W(ApiPath(NewPath)), W(ApiPath(Target)),
                                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
    }
    if (failure != ERROR_SUCCESS) RemoveWithHandle(New, true);
    return failure;
}

ReplacingFile::ReplacingFile(const std::u16string& path, Writers writers)
    : Path(path), Pending(std::make_unique<Replacement>()) {
    DWORD refusal = Pending->Open(path);
    if (refusal == ERROR_SUCCESS) refusal = Pending->MakeNew(writers);
    if (refusal != ERROR_SUCCESS) RaiseFileError(refusal, Path);
}

ReplacingFile::~ReplacingFile() = default;

void ReplacingFile::Write(const void* data, std::size_t size) {
    const DWORD failure = WriteAll(Pending->New, static_cast<const char*>(data), size);
    if (failure != ERROR_SUCCESS) RaiseFileError(failure, Path);
}

std::string ReplacingFile::PathForLibrary() const {
    return PathToNative(Pending->NewPath);
}

void ReplacingFile::Finish() {
    if (const DWORD failure = Pending->Finish(); failure != ERROR_SUCCESS) RaiseFileError(failure, Path);
}
