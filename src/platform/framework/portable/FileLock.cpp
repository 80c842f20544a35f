#include "platform/framework/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/framework/Exceptions.h"
#include "platform/framework/FileError.h"
#include "platform/framework/Path.h"
#include "platform/framework/portable/FileCalls.h"

FileLock::FileLock(const std::u16string& path, Make make) {
    const std::string native = PathToNative(path);
    const FileCalls& calls = GetFileCalls();
    // Another user's link of that name must not make a file elsewhere.
    const int flags = O_RDWR | O_NONBLOCK | O_CLOEXEC | (make == Make::IfMissing ? O_CREAT | O_NOFOLLOW : 0);
    const int descriptor = Uninterrupted([&] { return calls.Open(native.c_str(), flags, 0600); });
    if (descriptor >= 0 && LockInTime(descriptor, LOCK_EX)) {
        Handle = descriptor;
        return;
    }
    FillFileError(&Error, errno, path);
    if (descriptor >= 0) calls.Close(descriptor);
}

FileLock::~FileLock() {
    if (IsHeld()) GetFileCalls().Close(static_cast<int>(Handle));
}

void MakeFolders(const std::u16string& path) {
    const std::string native = PathToNative(path);
    for (std::size_t at = native.find('/', 1); at != std::string::npos; at = native.find('/', at + 1)) {
        if (mkdir(native.substr(0, at).c_str(), 0700) == 0 || errno == EEXIST) continue;
        auto* error = new CFileException;
        error->Cause = CFileException::genericException;
        error->OsError = errno;
        error->FileName = path;
        throw error;
    }
}
