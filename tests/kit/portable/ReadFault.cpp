#include "kit/ReadFault.h"

#include <fcntl.h>
#include <unistd.h>

// The file's descriptor is replaced by one for writing alone.
bool BreakReading(const std::filesystem::path& path) {
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

// This process's memory, empty at address 0.
std::u16string UnreadableFile() {
    return u"/proc/self/mem";
}
