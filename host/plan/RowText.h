// Text that grows by short pieces, several bytes copied at once.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
class RowText {
  public:
    static constexpr std::size_t Step = 16;  // bytes copied at once

    void Clear() { Size = 0; }

    void Add(char c) {
        MakeRoom(1);
        Bytes[Size++] = c;
    }

    void Add(std::string_view text) {
        MakeRoom(text.size());
        text.copy(Bytes.data() + Size, text.size());
        Size += text.size();
    }

    // Adds bytes after which Step more can be read.
    void AddPadded(const char* bytes, std::size_t size) {
        MakeRoom(size);
        char* const out = Bytes.data() + Size;
        Size += size;
        std::memcpy(out, bytes, Step);
        for (std::size_t at = Step; at < size; at += Step) std::memcpy(out + at, bytes + at, Step);
    }

    // Valid until the next change.
    std::string_view Text() const { return {Bytes.data(), Size}; }

  private:
    void MakeRoom(std::size_t size) {
        if (Bytes.size() - Size < size + Step) Bytes.resize(2 * (Size + size + Step));
    }

    std::vector<char> Bytes;
    std::size_t Size = 0;
};
}  // namespace kelvarin::plan
