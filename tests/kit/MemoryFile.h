// A text file for the analysis that needs no disk.
#pragma once

#include <optional>
#include <utility>

#include "contract/StdioFileEx.h"

class MemoryFile : public CStdioFileEx {
  public:
    explicit MemoryFile(std::u16string_view text) : Text(text), Rest(text) {}

    // Its first line is given in bytes too, if it is asked for so.
    explicit MemoryFile(const std::string& bytes) : Bytes(bytes.substr(0, bytes.find('\n'))) {}

    bool ReadBytes(std::string& line) override {
        if (!Bytes) return false;
        line = *std::exchange(Bytes, std::nullopt);
        return true;
    }
    bool ReadString(std::u16string& line) override {
        ++Reads;
        if (Rest.empty()) return false;
        line = Rest.substr(0, Rest.find(u'\n'));
        Rest.remove_prefix(std::min(line.size() + 1, Rest.size()));
        return true;
    }
    void SeekToBegin(bool) override { Rest = Text; }

    int Reads = 0;  // calls of ReadString so far

  private:
    std::u16string_view Text, Rest;
    std::optional<std::string> Bytes;
};
