// A file for intermediate results of this process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// A new empty file in the system's folder for temporary files, for its user alone. It is gone when this
// object is, and when the process ends in whatever way. All but the destructor raise CFileException.
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

    // Takes all content out again.
    void Clear();

    // A path at which this process can open the file for reading, as long as this object lives.
    std::u16string Path() const;

  private:
    struct Handle;

    std::unique_ptr<Handle> Pending;
};
