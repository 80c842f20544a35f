// Steps over several UTF-16 units or bytes of text at once, in what every processor has.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace simd {

constexpr std::size_t UnitsPerMask = 64;
constexpr std::size_t BytesPerBlock = 16;

// Widens BytesPerBlock bytes; false if they are not all ASCII, with `out` then left alone.
inline bool WidenBlock(const char* bytes, char16_t* out) {
    unsigned char block[BytesPerBlock];
    std::memcpy(block, bytes, sizeof block);
    unsigned all = 0;
    for (const unsigned char byte : block) all |= byte;
    if (all >= 0x80) return false;
    for (std::size_t i = 0; i < BytesPerBlock; ++i) out[i] = block[i];
    return true;
}

// Writes a byte for each unit; false if one of them is above 0xFF, with the bytes then without meaning.
inline bool Narrow(const char16_t* text, std::size_t length, char* bytes) {
    unsigned all = 0;
    for (std::size_t i = 0; i < length; ++i) {
        all |= text[i];
        bytes[i] = static_cast<char>(text[i]);
    }
    return all < 0x100;
}

// The units before the terminating zero.
template <class Unit>
std::size_t LengthOf(const Unit* text) {
    std::size_t length = 0;
    while (text[length] != 0) ++length;
    return length;
}

// UnitsPerMask units with a bit for each, the first in the lowest.
struct UnitMasks {
    std::uint64_t Separators = 0;
    std::uint64_t Quotes = 0;  // double ones
    std::uint64_t Low = 0;     // up to the carriage return
};

// The units of which the predicate is true.
template <class Unit, class Predicate>
std::uint64_t MaskOf(const Unit* text, Predicate predicate) {
    // A loop that compilers know to unroll into wide comparisons; then eight flags become eight bits at once.
    std::uint8_t flags[UnitsPerMask];
    for (std::size_t i = 0; i < UnitsPerMask; ++i) flags[i] = predicate(text[i]);
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < UnitsPerMask; i += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, flags + i, sizeof eight);
        mask |= (eight * 0x0102040810204080 >> 56) << i;
    }
    return mask;
}

inline UnitMasks FindUnits(const char16_t* text, char16_t separator) {
    return {MaskOf(text, [separator](char16_t c) { return c == separator; }),
            MaskOf(text, [](char16_t c) { return c == u'"'; }),
            MaskOf(text, [](char16_t c) { return c <= u'\r'; })};
}

// Copies UnitsPerMask bytes and finds the same in them. Those beyond ASCII count as low.
inline UnitMasks CopyBytes(const char* text, char separator, char* copy) {
    std::memcpy(copy, text, UnitsPerMask);
    return {MaskOf(text, [separator](char c) { return c == separator; }),
            MaskOf(text, [](char c) { return c == '"'; }),
            MaskOf(text, [](char c) { return static_cast<signed char>(c) <= '\r'; })};
}

}  // namespace simd
