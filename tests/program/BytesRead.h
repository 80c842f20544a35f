// A file that takes long to import, and how far another process has read it.
#pragma once

#include <sys/types.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

// A column of numbers, three million blank lines, which take no time, and then words up to the size: each is
// refused with a message, which takes the program a microsecond. Whoever sees two million bytes read has some
// ten seconds left of 16 MiB.
inline std::string SlowFile(std::size_t size) {
    std::string file = "n\n";
    for (int i = 0; i < 600; ++i) file += "5\n";  // what decides on the type
    file.append(3'000'000, '\n');
    file.reserve(size);
    while (file.size() < size) file += "x\n";
    return file;
}

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
