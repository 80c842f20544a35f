// What UTF-16 units are in a line of a table, for several at once.
#pragma once

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

inline __m128i AreBetween(__m128i bytes, char first, char last) {
    const __m128i above = _mm_sub_epi8(bytes, _mm_set1_epi8(first));
    const __m128i most = _mm_set1_epi8(static_cast<char>(last - first));
    return _mm_cmpeq_epi8(_mm_min_epu8(above, most), above);
}

constexpr std::size_t CellUnitsStep = 2 * UnitsPerLoad;

// Looks at so many units, up to UnitsPerMask, a multiple of CellUnitsStep; the bits of others are 0. Writes a
// byte for each unit as well: a tab for a separator, a point for a decimal mark, NUL or a byte beyond ASCII
// for a unit beyond ASCII.
inline CellMasks FindCellUnits(const char16_t* text, std::size_t count, const CellSyntax& syntax,
                               char* bytes) {
    const auto replaced = [](__m128i units, __m128i where, char c) {
        return _mm_or_si128(_mm_andnot_si128(where, units), _mm_and_si128(where, _mm_set1_epi8(c)));
    };
    // Outside the loop: the compiler can't tell that the bytes written there aren't those of the syntax.
    const __m128i separator = _mm_set1_epi8(syntax.Separator);
    const __m128i otherSeparator = _mm_set1_epi8(syntax.OtherSeparator);
    const __m128i mark = _mm_set1_epi8(syntax.Mark);
    CellMasks masks;
    __m128i blanks = _mm_setzero_si128();
    for (std::size_t at = 0; at < count; at += CellUnitsStep) {
        const auto put = [at](__m128i where, std::uint64_t& mask) {
            mask |= std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(where))} << at;
        };
        // Units beyond one byte become 0xFF or NUL.
        const __m128i units = _mm_packus_epi16(LoadUnits(text + at), LoadUnits(text + at + UnitsPerLoad));
        const __m128i separators =
            _mm_or_si128(_mm_cmpeq_epi8(units, separator), _mm_cmpeq_epi8(units, otherSeparator));
        const __m128i marks = _mm_andnot_si128(separators, _mm_cmpeq_epi8(units, mark));
        put(separators, masks.Separators);
        put(marks, masks.Marks);
        put(AreBetween(units, '0', '9'), masks.Digits);
        put(_mm_cmpeq_epi8(units, _mm_set1_epi8('"')), masks.Quotes);
        blanks = _mm_or_si128(blanks, _mm_andnot_si128(separators, AreBetween(units, '\0', ' ')));
        const __m128i out = replaced(replaced(units, marks, '.'), separators, '\t');
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + at), out);
    }
    masks.HasBlanks = _mm_movemask_epi8(blanks) != 0;
    return masks;
}

constexpr std::size_t MostHexDigits = 16;

// MostHexDigits bytes with a bit for each, the first in the lowest.
struct HexMasks {
    unsigned Digits = 0;   // 0 to 9
    unsigned Letters = 0;  // a to f in either case
};

inline HexMasks FindHexDigits(const char* bytes) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    const __m128i low = _mm_or_si128(units, _mm_set1_epi8('a' - 'A'));
    return {static_cast<unsigned>(_mm_movemask_epi8(AreBetween(units, '0', '9'))),
            static_cast<unsigned>(_mm_movemask_epi8(AreBetween(low, 'a', 'f')))};
}

}  // namespace simd
