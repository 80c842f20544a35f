#include "platform/framework/portable/FileCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace {

// Short, since a holder that takes the lock again and again leaves it free for moments only.
constexpr std::chrono::milliseconds PauseOfLock(2);
constexpr int MostPauses = 2500;

}  // namespace

FileCalls& GetFileCalls() {
    static FileCalls calls = {
        [](const char* path, int flags, mode_t mode) { return open(path, flags, mode); },
        close,
        read,
        pread,
        write,
        lseek,
        [](int descriptor, struct stat* status) { return fstat(descriptor, status); },
        [](const char* path, struct stat* status) { return stat(path, status); },
        fchmod,
        fchown,
        flistxattr,
        fgetxattr,
        fsetxattr,
        ftruncate,
        flock,
        fsync,
        std::rename,
        unlink,
        [] { std::this_thread::sleep_for(PauseOfLock); },
    };
    return calls;
}

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

bool IsStillAt(int descriptor, const std::string& path) {
    struct stat held {};
    struct stat named {};
    return Uninterrupted([&] { return GetFileCalls().Status(descriptor, &held); }) == 0 &&
           Uninterrupted([&] { return GetFileCalls().StatusOfPath(path.c_str(), &named); }) == 0 &&
           held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

int RefusalOfKind(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : ESPIPE;
}

bool LockInTime(int descriptor, int operation) {
    const auto lock = [&] { return GetFileCalls().Lock(descriptor, operation | LOCK_NB); };
    for (int pauses = 0; Uninterrupted(lock) != 0 && errno == EWOULDBLOCK; ++pauses) {
        if (pauses == MostPauses) return false;
        GetFileCalls().Pause();
    }
    return true;
}
