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
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return ESPIPE;
    if ((flags & CFile::shareExclusive) != 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        // A file system without locks can't tell another opener; that is no reason to refuse the file.
        if (errno == EWOULDBLOCK) return EWOULDBLOCK;
    }
    if ((flags & CFile::modeCreate) != 0 && ftruncate(descriptor, 0) != 0) return errno;
    return 0;
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
    const int descriptor = open(PathToNative(Path).c_str(), mode, 0666);
    if (descriptor < 0) {
        Fill(error, errno, Path);
        return false;
    }
    if (const int refusal = RefusalOf(descriptor, flags); refusal != 0) {
        close(descriptor);
        Fill(error, refusal, Path);
        return false;
    }
    Handle = descriptor;
    return true;
}

std::size_t CFile::Read(void* data, std::size_t size) {
    for (;;) {
        const ssize_t count = read(DescriptorOf(Handle), data, size);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) RaiseLastError();
    }
}

void CFile::Write(const void* data, std::size_t size) {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t count = write(DescriptorOf(Handle), next, size);
        if (count < 0 && errno != EINTR) RaiseLastError();
        if (count < 0) continue;
        next += count;
        size -= static_cast<std::size_t>(count);
    }
}

void CFile::Seek(std::uint64_t position) {
    if (lseek(DescriptorOf(Handle), static_cast<off_t>(position), SEEK_SET) < 0) RaiseLastError();
}

std::uint64_t CFile::GetLength() const {
    struct stat status {};
    if (fstat(DescriptorOf(Handle), &status) != 0) RaiseLastError();
    return static_cast<std::uint64_t>(status.st_size);
}

void CFile::Flush() {
    if (fsync(DescriptorOf(Handle)) != 0) RaiseLastError();
}

void CFile::Close() {
    const int descriptor = DescriptorOf(Handle);
    Handle = Closed;
    if (descriptor >= 0 && close(descriptor) != 0 && errno != EINTR) RaiseLastError();
}

void CFile::Abort() noexcept {
    if (IsOpen()) close(DescriptorOf(Handle));
    Handle = Closed;
}

void CFile::RaiseLastError() const {
    auto* error = new CFileException;
    Fill(error, errno, Path);
    throw error;
}

std::u16string DescribeFileError(const CFileException& error) {
    if (error.Cause == CFileException::sharingViolation) return u"in use by another program";
    if (error.Cause == CFileException::badSeek) return u"not a regular file";
    return Utf8ToUtf16(std::strerror(static_cast<int>(error.OsError)));
}

void ReplaceFile(const std::u16string& path, const std::string& bytes) {
    const std::u16string temporary = path + u".tmp" + PathFromNative(std::to_string(getpid()));
    CFile file;
    auto* error = new CFileException;
    if (!file.Open(temporary.c_str(), CFile::modeWrite | CFile::modeCreate, error)) throw error;
    error->Delete();
    struct stat status {};
    if (stat(PathToNative(path).c_str(), &status) == 0)
        chmod(PathToNative(temporary).c_str(), status.st_mode & 07777);
    try {
        file.Write(bytes.data(), bytes.size());
        file.Flush();
        file.Close();
    } catch (CFileException*) {
        unlink(PathToNative(temporary).c_str());
        throw;
    }
    if (std::rename(PathToNative(temporary).c_str(), PathToNative(path).c_str()) != 0) {
        auto* failure = new CFileException;
        Fill(failure, errno, path);
        unlink(PathToNative(temporary).c_str());
        throw failure;
    }
}
