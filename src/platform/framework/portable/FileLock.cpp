#include "platform/framework/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/framework/Path.h"

FileLock::FileLock(const std::u16string& path)
    : Handle(open(PathToNative(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (!IsHeld()) return;
    while (flock(static_cast<int>(Handle), LOCK_EX) != 0 && errno == EINTR) {
    }
}

FileLock::~FileLock() {
    if (IsHeld()) close(static_cast<int>(Handle));
}

void MakeFolders(const std::u16string& path) {
    const std::string native = PathToNative(path);
    for (std::size_t at = native.find('/', 1); at != std::string::npos; at = native.find('/', at + 1)) {
        mkdir(native.substr(0, at).c_str(), 0700);
    }
}
