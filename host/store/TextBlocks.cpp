#include "host/store/TextBlocks.h"

#include <algorithm>
#include <cstring>

#include "simd/Units.h"

namespace kelvarin::store {
namespace {
constexpr std::size_t FirstSize = 256;
constexpr std::size_t LargestSize = 64 * 1024;

// Fills a text of the right length.
void Widen(const char* bytes, bool isNarrow, std::u16string& text) {
    if (isNarrow) {
        for (std::size_t i = 0; i < text.size(); ++i) text[i] = static_cast<unsigned char>(bytes[i]);
    } else if (!text.empty()) {
        std::memcpy(text.data(), bytes, text.size() * sizeof(char16_t));
    }
}
}  // namespace

void TextBlocks::AddBlock(std::size_t size) {
    const std::size_t next =
        Blocks.empty() ? FirstSize : std::clamp(2 * Blocks.back().Size, FirstSize, LargestSize);
    const std::size_t room = std::max(size, next);
    Blocks.push_back({static_cast<char*>(Memory.Allocate(room)), 0, room});
}

bool TextBlocks::Append(const char16_t* text, std::size_t length) {
    std::size_t size = length;
    const bool isNarrow = simd::Narrow(text, length, Reserve(length));
    if (!isNarrow) {
        size *= sizeof(char16_t);
        std::memcpy(Reserve(size), text, size);
    }
    Blocks.back().Used += size;
    return isNarrow;
}

std::string TextBlocks::Last(std::size_t length, bool isNarrow) const {
    if (length == 0) return {};  // of which no block needs to tell
    std::u16string text(length, 0);
    const Block& last = Blocks.back();
    Widen(last.Bytes + last.Used - (isNarrow ? length : length * sizeof(char16_t)), isNarrow, text);
    return {reinterpret_cast<const char*>(text.data()), length * sizeof(char16_t)};
}

const char* TextBlocks::Reader::NextBytes(std::size_t length, bool isNarrow) {
    const std::size_t size = isNarrow ? length : length * sizeof(char16_t);
    if (size == 0) return "";
    // A text that found no room is in the next block.
    while (size > Texts.Blocks[Current].Used - At) {
        ++Current;
        At = 0;
    }
    const char* const bytes = Texts.Blocks[Current].Bytes + At;
    At += size;
    return bytes;
}

const char16_t* TextBlocks::Reader::Next(std::size_t length, bool isNarrow) {
    Text.resize(length);
    Widen(NextBytes(length, isNarrow), isNarrow, Text);
    return Text.data();
}
}  // namespace kelvarin::store
