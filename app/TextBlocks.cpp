#include "app/TextBlocks.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t FirstSize = 256;
constexpr std::size_t LargestSize = 64 * 1024;

}  // namespace

void TextBlocks::Append(const void* data, std::size_t size) {
    if (Blocks.empty() || Blocks.back().Size - Blocks.back().Used < size) {
        const std::size_t next = Blocks.empty() ? FirstSize : std::min(2 * Blocks.back().Size, LargestSize);
        const std::size_t room = std::max(size, next);
        Blocks.push_back({static_cast<char*>(Memory.Allocate(room)), 0, room});
    }
    Block& block = Blocks.back();
    if (size != 0) std::memcpy(block.Bytes + block.Used, data, size);
    block.Used += size;
}

const char* TextBlocks::Reader::Next(std::size_t size) {
    // A text that found no room began the next block.
    if (size > Texts.Blocks[Block].Used - At) {
        ++Block;
        At = 0;
    }
    const char* const begin = Texts.Blocks[Block].Bytes + At;
    At += size;
    return begin;
}
