#include "kit/ReadFault.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>

bool BreakReading(const std::filesystem::path& path) {
    std::error_code ignored;
    const std::filesystem::path file = std::filesystem::canonical(path);
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        if (std::filesystem::read_symlink(entry.path(), ignored) != file) continue;
        // A descriptor open for writing alone answers every read with an error, whoever asks.
        const int writeOnly = open("/dev/null", O_WRONLY | O_CLOEXEC);
        const int descriptor = std::stoi(entry.path().filename().string());
        const bool replaced = dup2(writeOnly, descriptor) == descriptor;
        close(writeOnly);
        return replaced;
    }
    return false;
}

std::u16string UnreadableFile() {
    // The memory of this process, which has nothing at address 0.
    return u"/proc/self/mem";
}
