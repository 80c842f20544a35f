// A lock between processes, and the folders that it and its file need.
#pragma once

#include <cstdint>
#include <string>

#include "platform/framework/Exceptions.h"

// Holds a lock file for as long as it lives, so that of two processes that write at once neither loses the
// other's value. Waits five seconds for another holder. The file stays.
class FileLock {
  public:
    enum class Make { IfMissing, Never };

    explicit FileLock(const std::u16string& path, Make make = Make::IfMissing);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    // False if the lock file can't be made, or if another process holds it too long: GetError then has the
    // reason, the second one as a sharing violation.
    bool IsHeld() const { return Handle != -1; }
    const CFileException& GetError() const { return Error; }

    // Raises the reason.
    [[noreturn]] void RaiseError() const {
        auto* error = new CFileException(Error);
        error->AutoDelete = true;
        throw error;
    }

  private:
    std::intptr_t Handle = -1;
    CFileException Error{false};
};

// Makes the folder of a file and those above it. Raises CFileException for one that is missing and can't be
// made, where the system says that.
void MakeFolders(const std::u16string& path);
