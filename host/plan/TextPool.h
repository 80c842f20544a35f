// Many short texts in few pieces of memory.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
class TextPool {
  public:
    // A copy of the text, which stays where it is as long as the pool lives.
    std::u16string_view Add(std::u16string_view text) {
        if (text.size() > Room) Grow(text.size());
        char16_t* const copy = Next;
        text.copy(copy, text.size());
        Next += text.size();
        Room -= text.size();
        return {copy, text.size()};
    }

  private:
    void Grow(std::size_t size) {
        constexpr std::size_t Least = 32 * 1024;
        Room = std::max(size, Least);
        Next = Blocks.emplace_back(std::make_unique_for_overwrite<char16_t[]>(Room)).get();
    }

    std::vector<std::unique_ptr<char16_t[]>> Blocks;
    char16_t* Next = nullptr;  // in the last block
    std::size_t Room = 0;      // units from there on
};
}  // namespace kelvarin::plan
