// How far another process has read a file.
#pragma once

#include <sys/types.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

// The bytes that the process has read of the file where it holds it open; 0 where it doesn't.
inline long BytesRead(pid_t process, const std::filesystem::path& file) {
    std::error_code ignored;
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    long read = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "fd", ignored)) {
        if (std::filesystem::read_symlink(entry.path(), ignored) != file) continue;
        std::ifstream information(folder / "fdinfo" / entry.path().filename());
        std::string key;
        long position = 0;
        if (information >> key >> position) read = std::max(read, position);
    }
    return read;
}
