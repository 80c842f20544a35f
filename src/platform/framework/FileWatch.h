// Whether the file at a path is still the one that was there before, as it was.
#pragma once

#include <cstdint>
#include <string>

enum class FileChange {
    None,
    Removed,
    Replaced,    // another file has its path
    Cut,         // shorter than it was
    Overwritten  // as long as it was, with another time of writing
};

// Remembers the file at a path, and holds it: no other file gets its number meanwhile.
class FileWatch {
  public:
    explicit FileWatch(const std::u16string& path);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;
    ~FileWatch();

    // What has become of the file since. None if it only grew, as a log does, or if there was none.
    FileChange Change() const;

  private:
    // Nothing but zeros if there is no such file.
    struct State {
        std::uint64_t Device = 0, Number = 0, Size = 0;
        std::int64_t Written = 0;
    };
    State HeldNow() const;

    static constexpr std::intptr_t None = -1;

    const std::u16string Path;
    const std::intptr_t Handle;
    const State Before;
};
