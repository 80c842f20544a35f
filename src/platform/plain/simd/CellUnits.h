// What UTF-16 units are in a line of a table, in what every processor has.
#pragma once

#include <algorithm>

#include "simd/Units.h"

namespace simd {

// Up to UnitsPerMask units with a bit for each, the first in the lowest.
struct CellMasks {
    std::uint64_t Separators = 0;
    std::uint64_t Digits = 0;
    std::uint64_t Marks = 0;   // decimal ones that are no separators
    std::uint64_t Quotes = 0;  // double ones
    bool HasBlanks = false;    // white space that separates nothing, or other units below the printable ones
};

// The units of a line that have a meaning, each ASCII and not NUL. Both separators may be the same.
struct CellSyntax {
    char Separator, OtherSeparator;
    char Mark;
};

constexpr std::size_t CellUnitsStep = 16;

// Looks at so many units, up to UnitsPerMask, a multiple of CellUnitsStep; the bits of others are 0. Writes a
// byte for each unit as well: a tab for a separator, a point for a decimal mark, NUL or a byte beyond ASCII
// for a unit beyond ASCII.
inline CellMasks FindCellUnits(const char16_t* units, std::size_t count, const CellSyntax& syntax,
                               char* bytes) {
    char16_t text[UnitsPerMask];
    std::fill(std::copy_n(units, count, text), text + UnitsPerMask, u'x');
    const auto isSeparator = [&](char16_t c) {
        return c == static_cast<char16_t>(syntax.Separator) ||
               c == static_cast<char16_t>(syntax.OtherSeparator);
    };
    const auto isMark = [&](char16_t c) { return c == static_cast<char16_t>(syntax.Mark); };
    for (std::size_t i = 0; i < count; ++i) {
        const char byte = text[i] < 0x80 ? static_cast<char>(text[i]) : '\0';
        bytes[i] = isSeparator(text[i]) ? '\t' : isMark(text[i]) ? '.' : byte;
    }
    CellMasks masks;
    masks.Separators = MaskOf(text, isSeparator);
    masks.Digits = MaskOf(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
    masks.Marks = MaskOf(text, isMark) & ~masks.Separators;
    masks.Quotes = MaskOf(text, [](char16_t c) { return c == u'"'; });
    masks.HasBlanks = (MaskOf(text, [](char16_t c) { return c <= u' '; }) & ~masks.Separators) != 0;
    return masks;
}

constexpr std::size_t MostHexDigits = 16;

// MostHexDigits bytes with a bit for each, the first in the lowest.
struct HexMasks {
    unsigned Digits = 0;   // 0 to 9
    unsigned Letters = 0;  // a to f in either case
};

inline HexMasks FindHexDigits(const char* bytes) {
    HexMasks masks;
    for (std::size_t i = 0; i < MostHexDigits; ++i) {
        const char low = static_cast<char>(bytes[i] | 0x20);
        masks.Digits |= unsigned{bytes[i] >= '0' && bytes[i] <= '9'} << i;
        masks.Letters |= unsigned{low >= 'a' && low <= 'f'} << i;
    }
    return masks;
}

}  // namespace simd
