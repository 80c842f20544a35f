// The lines of the source file by their number, read once from top to bottom.
#pragma once

#include <cstdint>
#include <string>

#include "contract/StdioFileEx.h"

namespace kelvarin::check {

// Reads a file as the module does, so that its lines are the module's. Only while the module has the file
// closed: it opens it for itself alone.
class SourceLines {
  public:
    // Raises CFileException, here and below.
    explicit SourceLines(const std::u16string& path);

    // Reads on to a line that is not before the current one; false behind the end of the file.
    bool GoTo(std::uint64_t line);

    const std::u16string& Text() const { return LineText; }

    // Byte positions of the current line and of the next.
    std::uint64_t Begin() const { return LineBegin; }
    std::uint64_t End() const { return File.GetPosition(); }

  private:
    CStdioFileEx File;
    std::u16string LineText;
    std::uint64_t Current = 0;
    std::uint64_t LineBegin = 0;
};

}  // namespace kelvarin::check
