#include "platform/framework/portable/FileCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdio>

FileCalls& GetFileCalls() {
    static FileCalls calls = {
        [](const char* path, int flags, mode_t mode) { return open(path, flags, mode); },
        close,
        read,
        write,
        lseek,
        [](int descriptor, struct stat* status) { return fstat(descriptor, status); },
        [](const char* path, struct stat* status) { return stat(path, status); },
        fchmod,
        ftruncate,
        flock,
        fsync,
        std::rename,
        unlink,
    };
    return calls;
}
