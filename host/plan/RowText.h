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

    RowText() { Grow(0); }
    RowText(const RowText&) = delete;
    RowText& operator=(const RowText&) = delete;

    void Clear() { Next = Bytes.data(); }

    void Add(char c) {
        MakeRoom(1);
        *Next++ = c;
    }

    void Add(std::string_view text) {
        MakeRoom(text.size());
        text.copy(Next, text.size());
        Next += text.size();
    }

    // Adds bytes after which Step more can be read.
    void AddPadded(const char* bytes, std::size_t size) {
        MakeRoom(size);
        char* const out = Next;
        Next += size;
        std::memcpy(out, bytes, Step);
        for (std::size_t at = Step; at < size; at += Step) std::memcpy(out + at, bytes + at, Step);
    }

    // Valid until the next change.
    std::string_view Text() const { return {Bytes.data(), Size()}; }

  private:
    std::size_t Size() const { return static_cast<std::size_t>(Next - Bytes.data()); }

    void MakeRoom(std::size_t size) {
        if (size > static_cast<std::size_t>(End - Next)) Grow(size);
    }

    void Grow(std::size_t size) {
        constexpr std::size_t Least = 256;
        const std::size_t used = Bytes.empty() ? 0 : Size();
        Bytes.resize(2 * (used + size) + Least);
        Next = Bytes.data() + used;
        End = Bytes.data() + Bytes.size() - Step;
    }

    std::vector<char> Bytes;
    char* Next = nullptr;
    char* End = nullptr;  // Step bytes before that of Bytes
};
}  // namespace kelvarin::plan
