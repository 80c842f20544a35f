// A lock between processes, and the folders that it and its file need.
#pragma once

#include <cstdint>
#include <string>

// Holds a lock file for as long as it lives, so that of two processes that write at once neither loses the
// other's value. Waits for another holder. The file stays.
class FileLock {
  public:
    explicit FileLock(const std::u16string& path);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    // False if the lock file can't be made.
    bool IsHeld() const { return Handle != -1; }

  private:
    std::intptr_t Handle;
};

// Makes the folder of a file and those above it. Raises CFileException for one that is missing and can't be
// made, where the system says that.
void MakeFolders(const std::u16string& path);
