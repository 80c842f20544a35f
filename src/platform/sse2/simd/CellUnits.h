// What UTF-16 units are in a line of a table, for several at once.
#pragma once

#include "simd/Units.h"

namespace simd {

// UnitsPerMask units with a bit for each, the first in the lowest.
struct CellMasks {
    std::uint64_t Separators = 0;
    std::uint64_t Digits = 0;
    std::uint64_t Marks = 0;  // decimal ones that are no separators
    bool HasQuotes = false;   // double ones
    bool HasBlanks = false;   // white space that separates nothing
};

// The units of a line that have a meaning, each ASCII and not NUL. Both separators may be the same.
struct CellSyntax {
    char Separator, OtherSeparator;
    char Mark;
};

// Writes a byte for each unit as well: a tab for a separator, a point for a decimal mark, any byte for a unit
// beyond ASCII.
inline CellMasks FindCellUnits(const char16_t* text, const CellSyntax& syntax, char* bytes) {
    constexpr std::size_t Step = 2 * UnitsPerLoad;
    const auto equal = [](__m128i units, char c) { return _mm_cmpeq_epi8(units, _mm_set1_epi8(c)); };
    const auto isBetween = [](__m128i units, char first, char last) {
        const __m128i above = _mm_sub_epi8(units, _mm_set1_epi8(first));
        const __m128i most = _mm_set1_epi8(static_cast<char>(last - first));
        return _mm_cmpeq_epi8(_mm_min_epu8(above, most), above);
    };
    const auto replaced = [](__m128i units, __m128i where, char c) {
        return _mm_or_si128(_mm_andnot_si128(where, units), _mm_and_si128(where, _mm_set1_epi8(c)));
    };
    CellMasks masks;
    __m128i quotes = _mm_setzero_si128();
    __m128i blanks = _mm_setzero_si128();
    for (std::size_t at = 0; at < UnitsPerMask; at += Step) {
        const auto put = [at](__m128i where, std::uint64_t& mask) {
            mask |= std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(where))} << at;
        };
        // Units beyond one byte become 0xFF or NUL.
        const __m128i units = _mm_packus_epi16(LoadUnits(text + at), LoadUnits(text + at + UnitsPerLoad));
        const __m128i separators =
            _mm_or_si128(equal(units, syntax.Separator), equal(units, syntax.OtherSeparator));
        const __m128i marks = _mm_andnot_si128(separators, equal(units, syntax.Mark));
        put(separators, masks.Separators);
        put(marks, masks.Marks);
        put(isBetween(units, '0', '9'), masks.Digits);
        quotes = _mm_or_si128(quotes, equal(units, '"'));
        const __m128i white = _mm_or_si128(equal(units, ' '), isBetween(units, '\t', '\r'));
        blanks = _mm_or_si128(blanks, _mm_andnot_si128(separators, white));
        const __m128i out = replaced(replaced(units, marks, '.'), separators, '\t');
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + at), out);
    }
    masks.HasQuotes = _mm_movemask_epi8(quotes) != 0;
    masks.HasBlanks = _mm_movemask_epi8(blanks) != 0;
    return masks;
}

}  // namespace simd
