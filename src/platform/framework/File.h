// An unbuffered file: open, read, write, seek, close. The platform's half of every reader and writer.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/framework/Exceptions.h"

// A regular file. Directories, pipes and devices are refused at opening: they can't be rewound, and some
// never end. All operations but Open and Abort raise a CFileException pointer on failure.
class CFile {
  public:
    enum EOpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        shareExclusive = 0x0010,
        modeCreate = 0x1000,
        typeText = 0x4000
    };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    virtual ~CFile();

    // Opens the file. With shareExclusive a second opener that asks the same fails with a sharing violation.
    // False on failure, with `error` filled.
    virtual bool Open(const char16_t* path, unsigned flags, CFileException* error);

    // Uses the open file of another object, which must stay open, for ReadAt and GetLength alone.
    void Share(const CFile& other);

    // Reads up to `size` bytes; 0 at the end of the file.
    std::size_t Read(void* data, std::size_t size);

    // The same from a byte position on. Any number of threads may read one file so, if none of them uses
    // Read.
    std::size_t ReadAt(std::uint64_t position, void* data, std::size_t size) const;

    // Writes all of the bytes.
    void Write(const void* data, std::size_t size);

    // Moves to a byte position from the start.
    void Seek(std::uint64_t position);

    // The file's length in bytes at this moment.
    std::uint64_t GetLength() const;

    // Hands the bytes written so far to the storage itself.
    void Flush();

    // Closes the file. A failure is raised after the file is closed.
    virtual void Close();

    // Closes the file without raising; nothing on a closed file.
    virtual void Abort() noexcept;

    bool IsOpen() const { return Handle != Closed; }

  private:
    static constexpr std::intptr_t Closed = -1;

    // Raises the operating system's last error for this file.
    [[noreturn]] void RaiseLastError() const;

    std::intptr_t Handle = Closed;
    bool IsShared = false;  // the handle is another object's
    std::u16string Path;
};

// Why a file operation failed, as the operating system says it, for people.
std::u16string DescribeFileError(const CFileException& error);

// What tells a file from every other one of the machine, whatever path or link leads to it.
struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Number = 0;

    auto operator<=>(const FileIdentity&) const = default;
};

// The identity of the file, folder or device that a path leads to; nothing if there is none.
std::optional<FileIdentity> IdentityOf(const std::u16string& path);
