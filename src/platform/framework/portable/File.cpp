#include "platform/framework/File.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/framework/portable/FileCalls.h"

namespace {

CFileException::ECause CauseOf(int error) {
    switch (error) {
        case ENOENT:
            return CFileException::fileNotFound;
        case ENOTDIR:
        case ENAMETOOLONG:
        case ELOOP:
            return CFileException::badPath;
        case EMFILE:
        case ENFILE:
            return CFileException::tooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return CFileException::accessDenied;
        case EWOULDBLOCK:
            return CFileException::sharingViolation;
        case ESPIPE:
            return CFileException::badSeek;
        case EIO:
            return CFileException::hardIO;
        case ENOSPC:
            return CFileException::diskFull;
        default:
            return CFileException::genericException;
    }
}

void Fill(CFileException* error, int number, const std::u16string& path) {
    error->Cause = CauseOf(number);
    error->OsError = number;
    error->FileName = path;
}

// 0, or the number of the error that keeps this descriptor from being used as asked.
int RefusalOf(int descriptor, unsigned flags) {
    const FileCalls& calls = GetFileCalls();
    struct stat status {};
    if (Uninterrupted([&] { return calls.Status(descriptor, &status); }) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return ESPIPE;
    if ((flags & CFile::shareExclusive) != 0 && calls.Lock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        // A file system without locks can't tell another opener; that is no reason to refuse the file.
        if (errno == EWOULDBLOCK) return EWOULDBLOCK;
    }
    if ((flags & CFile::modeCreate) == 0) return 0;
    return Uninterrupted([&] { return calls.Truncate(descriptor, 0); }) == 0 ? 0 : errno;
}

// Writes all of the bytes; false with errno set.
bool WriteAll(int descriptor, const char* next, std::size_t size) {
    while (size > 0) {
        const ssize_t count = Uninterrupted([&] { return GetFileCalls().Write(descriptor, next, size); });
        if (count == 0) errno = ENOSPC;
        if (count <= 0) return false;
        next += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

int DescriptorOf(std::intptr_t handle) {
    return static_cast<int>(handle);
}

[[noreturn]] void Raise(int number, const std::u16string& path) {
    auto* error = new CFileException;
    Fill(error, number, path);
    throw error;
}

// Opens the file that takes the new content of another, for one writer at a time: waits for one that holds
// it, and uses up what a killed one left. Below 0 for a failure, with errno set.
int OpenTemporary(const std::string& name) {
    const FileCalls& calls = GetFileCalls();
    constexpr int Flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    constexpr int MostAttempts = 1000;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        const int descriptor = Uninterrupted([&] { return calls.Open(name.c_str(), Flags, 0666); });
        if (descriptor < 0) {
            // Left by another user, or under the mode of a file that is for reading only.
            if (errno == EACCES && calls.Remove(name.c_str()) == 0) continue;
            return descriptor;
        }
        Uninterrupted([&] { return calls.Lock(descriptor, LOCK_EX); });
        struct stat held {};
        struct stat named {};
        int refusal = RefusalOf(descriptor, 0);
        if (refusal == 0 && calls.Status(descriptor, &held) != 0) refusal = errno;
        const bool isThere = refusal == 0 && calls.StatusOfPath(name.c_str(), &named) == 0;
        if (isThere && held.st_ino == named.st_ino && held.st_dev == named.st_dev) return descriptor;
        // Who held it before has moved it to its place: what is held now is the finished file.
        calls.Close(descriptor);
        errno = refusal;
        if (refusal != 0) return -1;
    }
    errno = EWOULDBLOCK;
    return -1;
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
        Fill(error, errno, Path);
        return false;
    }
    if (const int refusal = RefusalOf(descriptor, flags); refusal != 0) {
        GetFileCalls().Close(descriptor);
        Fill(error, refusal, Path);
        return false;
    }
    Handle = descriptor;
    return true;
}

std::size_t CFile::Read(void* data, std::size_t size) {
    const ssize_t count =
        Uninterrupted([&] { return GetFileCalls().Read(DescriptorOf(Handle), data, size); });
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
    if (descriptor >= 0 && GetFileCalls().Close(descriptor) != 0 && errno != EINTR) RaiseLastError();
}

void CFile::Abort() noexcept {
    if (IsOpen()) GetFileCalls().Close(DescriptorOf(Handle));
    Handle = Closed;
}

void CFile::RaiseLastError() const {
    Raise(errno, Path);
}

std::u16string DescribeFileError(const CFileException& error) {
    if (error.Cause == CFileException::sharingViolation) return u"in use by another program";
    if (error.Cause == CFileException::badSeek) return u"not a regular file";
    return Utf8ToUtf16(std::strerror(static_cast<int>(error.OsError)));
}

void ReplaceFile(const std::u16string& path, const std::string& bytes) {
    const FileCalls& calls = GetFileCalls();
    const std::string target = PathToNative(path);
    const std::string temporary = target + ".tmp";
    const int descriptor = OpenTemporary(temporary);
    if (descriptor < 0) Raise(errno, path);
    struct stat status {};
    if (calls.StatusOfPath(target.c_str(), &status) == 0) calls.SetMode(descriptor, status.st_mode & 07777);
    // It is held until it has its name: a writer that waits for it would else empty it before.
    const bool replaced = Uninterrupted([&] { return calls.Truncate(descriptor, 0); }) == 0 &&
                          WriteAll(descriptor, bytes.data(), bytes.size()) &&
                          Uninterrupted([&] { return calls.Sync(descriptor); }) == 0 &&
                          Uninterrupted([&] { return calls.Rename(temporary.c_str(), target.c_str()); }) == 0;
    const int number = errno;
    if (!replaced) calls.Remove(temporary.c_str());
    calls.Close(descriptor);
    if (!replaced) Raise(number, path);
}
