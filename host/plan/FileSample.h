// Lines from all over a file, however long it is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CStdioFileEx;

namespace kelvarin::plan {
// Opens a file of text for reading, while nobody else writes it. Raises CFileException.
void OpenOrRaise(CStdioFileEx& file, const std::u16string& path);

struct SampleLine {
    std::uint64_t Number = 0;  // of the file, from 1; 0 where the lines before were not counted
    std::u16string Text;
    bool IsAfterGap = false;  // lines before it were left out
    std::size_t Lines = 1;  // of the file; more for names with line ends in quotes, Number is the last one's
};

struct FileSample {
    std::vector<SampleLine> Lines;  // in the order of the file, blank ones too
    std::size_t Head = 0;           // lines from the beginning without a gap
    bool IsWhole = false;           // every line is among them
};

// Reads the first lines, so many at most, some at places evenly spread over the rest, and the last ones: some
// MiB. Raises CFileException.
FileSample SampleFile(const std::u16string& path, std::size_t mostHeadLines = 2000);
}  // namespace kelvarin::plan
