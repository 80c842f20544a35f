// A text file for the analysis that needs no disk.
#pragma once

#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"

class MemoryFile : public CStdioFileEx {
  public:
    // With `holdsBytes` each line is held in bytes too, for those who ask for it so.
    explicit MemoryFile(std::u16string_view text, bool holdsBytes = false)
        : Text(text), Rest(text), HoldsBytes(holdsBytes) {}

    std::string_view GetHeldBytes() const override {
        if (!HoldsBytes || Rest.empty()) return {};
        Bytes = Utf16ToUtf8(NextLine()) + '\n';
        const std::size_t length = Bytes.size();
        Bytes.append(HeldPadding, '\n');
        return std::string_view(Bytes).substr(0, length);
    }
    void PassHeldBytes(std::size_t) override { PassLine(); }

    bool ReadString(std::u16string& line) override {
        ++Reads;
        if (Rest.empty()) return false;
        line = NextLine();
        PassLine();
        return true;
    }
    void SeekToBegin(bool) override { Rest = Text; }

    int Reads = 0;  // calls of ReadString so far

  private:
    std::u16string_view NextLine() const { return Rest.substr(0, Rest.find(u'\n')); }
    void PassLine() { Rest.remove_prefix(std::min(NextLine().size() + 1, Rest.size())); }

    std::u16string_view Text, Rest;
    const bool HoldsBytes;
    mutable std::string Bytes;
};
