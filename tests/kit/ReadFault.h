// Read errors in files that the filter opens by itself.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

// Makes every further read from the file fail that this process has open at `path`: its descriptor is
// replaced by one for writing alone. What its reader already holds still comes. False if the file isn't open.
inline bool BreakReading(const std::filesystem::path& path) {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        if (std::filesystem::read_symlink(entry.path(), ignored) != std::filesystem::canonical(path))
            continue;
        const int writeOnly = open("/dev/null", O_WRONLY | O_CLOEXEC);
        const int replaced = dup2(writeOnly, std::stoi(entry.path().filename().string()));
        close(writeOnly);
        return replaced != -1;
    }
    return false;
}

// A regular file that can be opened and whose every read fails: this process's memory, empty at address 0.
inline std::u16string UnreadableFile() {
    return u"/proc/self/mem";
}
