// A file for intermediate results of this process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// A new empty file in the system's folder for temporary files, for its user alone. It is removed with this
// object, and when the process ends in whatever way; on Windows a process that is killed after Path was asked
// for leaves it. All but the destructor raise CFileException.
class ScratchFile {
  public:
    ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    // Adds to the end.
    void Write(const void* data, std::size_t size);

    // Reads up to `size` bytes from a position on; 0 at the end.
    std::size_t Read(std::uint64_t position, void* data, std::size_t size) const;

    // Removes the content.
    void Clear();

    // A path at which this process and those that it starts can open the file for reading, as long as this
    // object lives. None of the functions above may be called afterwards.
    std::u16string Path();

  private:
    struct Handle;

    std::unique_ptr<Handle> Pending;
};
