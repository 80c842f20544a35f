#include "platform/framework/File.h"
#include "platform/framework/FileError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/framework/Path.h"
#include "platform/framework/portable/FileCalls.h"

namespace {

// 0, or the number of the error that keeps this descriptor from being used as asked.
int RefusalOf(int descriptor, unsigned flags) {
    const FileCalls& calls = GetFileCalls();
    struct stat status {};
    if (Uninterrupted([&] { return calls.Status(descriptor, &status); }) != 0) return errno;
    if (const int refusal = RefusalOfKind(status); refusal != 0) return refusal;
    if ((flags & CFile::shareExclusive) != 0 && calls.Lock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        // A file system without locks can't tell another opener; that is no reason to refuse the file.
        if (errno == EWOULDBLOCK) return EWOULDBLOCK;
    }
    if ((flags & CFile::modeCreate) == 0) return 0;
    return Uninterrupted([&] { return calls.Truncate(descriptor, 0); }) == 0 ? 0 : errno;
}

int DescriptorOf(std::intptr_t handle) {
    return static_cast<int>(handle);
}

}  // namespace

CFile::~CFile() {
    CFile::Abort();
}

bool CFile::Open(const char16_t* path, unsigned flags, CFileException* error) {
    Abort();
    Path = path;
    int mode = O_CLOEXEC | O_NONBLOCK;  // a pipe without a writer must be refused, not waited for
    mode |= (flags & modeWrite) != 0 ? O_WRONLY : O_RDONLY;
    if ((flags & modeCreate) != 0) mode |= O_CREAT;
    const std::string native = PathToNative(Path);
    const int descriptor = Uninterrupted([&] { return GetFileCalls().Open(native.c_str(), mode, 0666); });
    if (descriptor < 0) {
        FillFileError(error, errno, Path);
        return false;
    }
    if (const int refusal = RefusalOf(descriptor, flags); refusal != 0) {
        GetFileCalls().Close(descriptor);
        FillFileError(error, refusal, Path);
        return false;
    }
    Handle = descriptor;
    return true;
}

void CFile::Share(const CFile& other) {
    Abort();
    Handle = other.Handle;
    Path = other.Path;
    IsShared = true;
}

std::size_t CFile::Read(void* data, std::size_t size) {
    const ssize_t count =
        Uninterrupted([&] { return GetFileCalls().Read(DescriptorOf(Handle), data, size); });
    if (count < 0) RaiseLastError();
    return static_cast<std::size_t>(count);
}

std::size_t CFile::ReadAt(std::uint64_t position, void* data, std::size_t size) const {
    const auto offset = static_cast<off_t>(position);
    const ssize_t count =
        Uninterrupted([&] { return GetFileCalls().ReadAt(DescriptorOf(Handle), data, size, offset); });
    if (count < 0) RaiseLastError();
    return static_cast<std::size_t>(count);
}

void CFile::Write(const void* data, std::size_t size) {
    if (!WriteAll(DescriptorOf(Handle), static_cast<const char*>(data), size)) RaiseLastError();
}

void CFile::Seek(std::uint64_t position) {
    const auto offset = static_cast<off_t>(position);
    const auto seek = [&] { return GetFileCalls().Seek(DescriptorOf(Handle), offset, SEEK_SET); };
    if (Uninterrupted(seek) < 0) RaiseLastError();
}

std::uint64_t CFile::GetLength() const {
    struct stat status {};
    const auto ask = [&] { return GetFileCalls().Status(DescriptorOf(Handle), &status); };
    if (Uninterrupted(ask) != 0) RaiseLastError();
    return static_cast<std::uint64_t>(status.st_size);
}

void CFile::Flush() {
    if (Uninterrupted([&] { return GetFileCalls().Sync(DescriptorOf(Handle)); }) != 0) RaiseLastError();
}

void CFile::Close() {
    const int descriptor = DescriptorOf(Handle);
    Handle = Closed;
    if (std::exchange(IsShared, false)) return;
    if (descriptor >= 0 && GetFileCalls().Close(descriptor) != 0 && errno != EINTR) RaiseLastError();
}

void CFile::Abort() noexcept {
    if (IsOpen() && !IsShared) GetFileCalls().Close(DescriptorOf(Handle));
    Handle = Closed;
    IsShared = false;
}

void CFile::RaiseLastError() const {
    RaiseFileError(errno, Path);
}

std::optional<FileIdentity> IdentityOf(const std::u16string& path) {
    struct stat status {};
    const std::string native = PathToNative(path);
    if (Uninterrupted([&] { return GetFileCalls().StatusOfPath(native.c_str(), &status); }) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}
