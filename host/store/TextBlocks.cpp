#include "host/store/TextBlocks.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>

namespace kelvarin::store {

namespace {

constexpr std::size_t FirstSize = 256;
constexpr std::size_t LargestSize = 64 * 1024;

constexpr std::size_t UnitsPerStep = 8;

// Writes the low bytes of all units; true if the high ones are zero.
bool Narrow(const char16_t* text, std::size_t length, char* bytes) {
    __m128i all = _mm_setzero_si128();
    std::size_t i = 0;
    for (; i + UnitsPerStep <= length; i += UnitsPerStep) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        all = _mm_or_si128(all, units);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes + i), _mm_packus_epi16(units, units));
    }
    unsigned rest = 0;
    for (; i < length; ++i) {
        rest |= text[i];
        bytes[i] = static_cast<char>(text[i]);
    }
    const __m128i high = _mm_srli_epi16(all, 8);
    return rest < 0x100 && _mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) == 0xFFFF;
}

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
    const std::size_t next = Blocks.empty() ? FirstSize : std::min(2 * Blocks.back().Size, LargestSize);
    const std::size_t room = std::max(size, next);
    Blocks.push_back({static_cast<char*>(Memory.Allocate(room)), 0, room});
}

bool TextBlocks::Append(const char16_t* text, std::size_t length) {
    std::size_t size = length;
    const bool isNarrow = Narrow(text, length, Reserve(length));
    if (!isNarrow) {
        size *= sizeof(char16_t);
        std::memcpy(Reserve(size), text, size);
    }
    Blocks.back().Used += size;
    return isNarrow;
}

const char16_t* TextBlocks::Reader::Next(std::size_t length, bool isNarrow) {
    const std::size_t size = isNarrow ? length : length * sizeof(char16_t);
    // A text that found no room is in the next block.
    while (!Texts.Blocks.empty() && size > Texts.Blocks[Block].Used - At) {
        ++Block;
        At = 0;
    }
    Text.resize(length);
    if (size != 0) Widen(Texts.Blocks[Block].Bytes + At, isNarrow, Text);
    At += size;
    return Text.data();
}

}  // namespace kelvarin::store
