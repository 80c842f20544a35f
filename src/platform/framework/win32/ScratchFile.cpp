#include "platform/framework/ScratchFile.h"

#include <algorithm>
#include <array>

#include "platform/framework/FileError.h"
#include "platform/framework/win32/Api.h"

namespace {

// One call moves at most so much; the calls count in 32 bits.
constexpr std::size_t MostAtOnce = std::size_t{1} << 30;

}  // namespace

struct ScratchFile::Handle {
    ~Handle() {
        if (File != INVALID_HANDLE_VALUE) {
            CloseHandle(File);
        } else if (!Path.empty()) {
            DeleteFileW(W(ApiPath(Path)));
        }
    }

    [[noreturn]] void Raise() const { RaiseFileError(GetLastError(), Path); }

    void MoveTo(std::uint64_t position) const {
        LARGE_INTEGER place;
        place.QuadPart = static_cast<LONGLONG>(position);
        if (!SetFilePointerEx(File, place, nullptr, FILE_BEGIN)) Raise();
    }

    HANDLE File = INVALID_HANDLE_VALUE;
    std::u16string Path;
    std::uint64_t Length = 0;
};

ScratchFile::ScratchFile() : Pending(std::make_unique<Handle>()) {
    std::array<char16_t, MAX_PATH + 1> folder{};
    std::array<char16_t, MAX_PATH + 1> name{};
    if (GetTempPathW(MAX_PATH, W(folder.data())) == 0) Pending->Raise();
    if (GetTempFileNameW(W(folder.data()), L"klv", 0, W(name.data())) == 0) Pending->Raise();
    Pending->Path = name.data();
    Pending->File = CreateFileW(W(ApiPath(Pending->Path)), GENERIC_READ | GENERIC_WRITE | DELETE, ShareAll,
                                nullptr, TRUNCATE_EXISTING, FILE_ATTRIBUTE_TEMPORARY, nullptr);
    if (Pending->File == INVALID_HANDLE_VALUE || RemoveWithHandle(Pending->File, true) != ERROR_SUCCESS)
        Pending->Raise();
}

ScratchFile::~ScratchFile() = default;

void ScratchFile::Write(const void* data, std::size_t size) {
    Pending->MoveTo(Pending->Length);
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        DWORD count = 0;
        const auto most = static_cast<DWORD>(std::min(size, MostAtOnce));
        if (!WriteFile(Pending->File, next, most, &count, nullptr)) Pending->Raise();
        next += count;
        size -= count;
        Pending->Length += count;
    }
}

std::size_t ScratchFile::Read(std::uint64_t position, void* data, std::size_t size) const {
    Pending->MoveTo(position);
    DWORD count = 0;
    const auto most = static_cast<DWORD>(std::min(size, MostAtOnce));
    if (!ReadFile(Pending->File, data, most, &count, nullptr)) Pending->Raise();
    return count;
}

void ScratchFile::Clear() {
    Pending->MoveTo(0);
    if (!SetEndOfFile(Pending->File)) Pending->Raise();
    Pending->Length = 0;
}

// Who opens the file may want it alone.
std::u16string ScratchFile::Path() {
    if (Pending->File != INVALID_HANDLE_VALUE) {
        if (RemoveWithHandle(Pending->File, false) != ERROR_SUCCESS) Pending->Raise();
        CloseHandle(Pending->File);
        Pending->File = INVALID_HANDLE_VALUE;
    }
    return Pending->Path;
}
