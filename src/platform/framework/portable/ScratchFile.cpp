#include "platform/framework/ScratchFile.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/framework/FileError.h"
#include "platform/framework/Path.h"
#include "platform/framework/portable/FileCalls.h"
#include "platform/framework/portable/TemporaryFile.h"

// A file without a name: nothing is left of it, whatever ends the process.
struct ScratchFile::Handle {
    TemporaryFile File;
    std::uint64_t Length = 0;
    mutable std::uint64_t Position = 0;

    // The file has no name; its folder says which disk is meant.
    [[noreturn]] static void Raise() {
        const int number = errno;
        std::error_code error;
        RaiseFileError(number, PathFromNative(std::filesystem::temp_directory_path(error).native()));
    }

    void MoveTo(std::uint64_t position) const {
        if (Position == position) return;
        const auto offset = static_cast<off_t>(position);
        const auto seek = [&] { return GetFileCalls().Seek(File.GetDescriptor(), offset, SEEK_SET); };
        if (Uninterrupted(seek) < 0) Raise();
        Position = position;
    }
};

ScratchFile::ScratchFile() : Pending(std::make_unique<Handle>()) {
    if (!Pending->File.MakeNameless()) Handle::Raise();
}

ScratchFile::~ScratchFile() = default;

void ScratchFile::Write(const void* data, std::size_t size) {
    Pending->MoveTo(Pending->Length);
    if (!WriteAll(Pending->File.GetDescriptor(), static_cast<const char*>(data), size)) Handle::Raise();
    Pending->Length += size;
    Pending->Position = Pending->Length;
}

std::size_t ScratchFile::Read(std::uint64_t position, void* data, std::size_t size) const {
    Pending->MoveTo(position);
    const auto read = [&] { return GetFileCalls().Read(Pending->File.GetDescriptor(), data, size); };
    const ssize_t count = Uninterrupted(read);
    if (count < 0) Handle::Raise();
    Pending->Position += static_cast<std::uint64_t>(count);
    return static_cast<std::size_t>(count);
}

void ScratchFile::Clear() {
    Pending->MoveTo(0);
    const auto cut = [&] { return GetFileCalls().Truncate(Pending->File.GetDescriptor(), 0); };
    if (Uninterrupted(cut) != 0) Handle::Raise();
    Pending->Length = 0;
}

std::u16string ScratchFile::Path() {
    return PathFromNative("/proc/" + std::to_string(getpid()) + "/fd/" +
                          std::to_string(Pending->File.GetDescriptor()));
}
