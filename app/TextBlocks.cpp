#include "app/TextBlocks.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t FirstSize = 256;
constexpr std::size_t LargestSize = 64 * 1024;

// Writes the low bytes of all units; true if the high ones are zero.
bool Narrow(const char16_t* text, std::size_t length, char* bytes) {
    char16_t all = 0;
    for (std::size_t i = 0; i < length; ++i) {
        all = static_cast<char16_t>(all | text[i]);
        bytes[i] = static_cast<char>(text[i]);
    }
    return all < 0x100;
}

}  // namespace

char* TextBlocks::Reserve(std::size_t size) {
    if (Blocks.empty() || Blocks.back().Size - Blocks.back().Used < size) {
        const std::size_t next = Blocks.empty() ? FirstSize : std::min(2 * Blocks.back().Size, LargestSize);
        const std::size_t room = std::max(size, next);
        Blocks.push_back({static_cast<char*>(Memory.Allocate(room)), 0, room});
    }
    return Blocks.back().Bytes + Blocks.back().Used;
}

bool TextBlocks::Append(const char16_t* text, std::size_t length) {
    char* const narrow = Reserve(length);
    if (Narrow(text, length, narrow)) {
        Blocks.back().Used += length;
        return true;
    }
    const std::size_t size = length * sizeof(char16_t);
    std::memcpy(Reserve(size), text, size);
    Blocks.back().Used += size;
    return false;
}

const char16_t* TextBlocks::Reader::Next(std::size_t length, bool isNarrow) {
    const std::size_t size = isNarrow ? length : length * sizeof(char16_t);
    // A text that found no room stands in the next block.
    while (!Texts.Blocks.empty() && size > Texts.Blocks[Block].Used - At) {
        ++Block;
        At = 0;
    }
    Text.resize(length);
    if (size == 0) return Text.data();
    const char* const bytes = Texts.Blocks[Block].Bytes + At;
    if (isNarrow) {
        for (std::size_t i = 0; i < length; ++i) Text[i] = static_cast<unsigned char>(bytes[i]);
    } else {
        std::memcpy(Text.data(), bytes, size);
    }
    At += size;
    return Text.data();
}
