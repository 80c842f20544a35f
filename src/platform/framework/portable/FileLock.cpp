#include "platform/framework/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/framework/Exceptions.h"
#include "platform/framework/Path.h"
#include "platform/framework/portable/FileCalls.h"

FileLock::FileLock(const std::u16string& path)
    : Handle(Uninterrupted([native = PathToNative(path)] {
          return GetFileCalls().Open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
      })) {
    if (IsHeld()) Uninterrupted([&] { return GetFileCalls().Lock(static_cast<int>(Handle), LOCK_EX); });
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
