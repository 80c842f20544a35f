// Text files for the analysis that need no disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/StdioFileEx.h"

// The lines of a text, which may end in a line feed or not.
inline std::vector<std::u16string> LinesOf(std::u16string_view text) {
    std::vector<std::u16string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

// Serves lines from memory; Open is not needed.
class MemoryFile : public CStdioFileEx {
  public:
    explicit MemoryFile(std::vector<std::u16string> lines) : Lines(std::move(lines)) {}

    bool ReadString(std::u16string& line) override {
        ++Reads;
        if (Next == Lines.size()) return false;
        line = Lines[Next++];
        return true;
    }
    void SeekToBegin(bool) override { Next = 0; }

    int Reads = 0;  // calls of ReadString so far

  private:
    const std::vector<std::u16string> Lines;
    std::size_t Next = 0;
};

// Raises a read error at the nth call of ReadString, counted from 1.
class FailingFile : public MemoryFile {
  public:
    FailingFile(std::vector<std::u16string> lines, int failingRead)
        : MemoryFile(std::move(lines)), FailingRead(failingRead) {}

    bool ReadString(std::u16string& line) override {
        if (Reads + 1 == FailingRead) {
            auto* const error = new CFileException;
            error->Cause = CFileException::hardIO;
            throw error;
        }
        return MemoryFile::ReadString(line);
    }

  private:
    const int FailingRead;
};
