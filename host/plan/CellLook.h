// What a cell is, of those that nearly all cells are, by the masks of its line.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simd/CellUnits.h"

namespace kelvarin::plan {
// A value from Whole on is a number of digits alone: Whole and so many digits, up to MostLookDigits.
enum class CellLook : std::uint8_t {
    Other,        // needs a look at its characters
    Decimal,      // digits, the decimal mark and digits, with a sign or without
    Empty,        //
    SignedWhole,  // digits with a sign
    Zero,         // "0"
    One,          // "1"
    Whole
};

constexpr std::size_t MostLookDigits = 18;

// 64 bits of a mask from a character on.
template <std::uint64_t simd::CellMasks::*Mask>
std::uint64_t BitsOf(const simd::CellMasks* masks, std::size_t from) {
    const simd::CellMasks* const word = masks + from / simd::UnitsPerMask;
    const std::size_t shift = from % simd::UnitsPerMask;
    return word[0].*Mask >> shift | word[1].*Mask << 1 << (simd::UnitsPerMask - 1 - shift);
}

// `masks` are those of the line and one more. Signs and lengths change from cell to cell: what depends on
// them takes no branch.
inline CellLook LookAtCell(const simd::CellMasks* masks, const char16_t* line, std::size_t begin,
                           std::size_t end) {
    const std::size_t size = end - begin;
    constexpr std::size_t LongestNumber = 32;
    if (size == 0) return CellLook::Empty;
    const char16_t first = line[begin];
    if (size > LongestNumber || first > u'9') return CellLook::Other;
    const std::size_t signs = std::size_t{first == u'-'} | std::size_t{first == u'+'};
    const std::uint64_t cell = (std::uint64_t{1} << size) - 1;
    const std::uint64_t number = cell - signs;
    const std::uint64_t digits = BitsOf<&simd::CellMasks::Digits>(masks, begin) & cell;
    if (digits == number) {
        const std::size_t count = size - signs;
        if (count - 1 >= MostLookDigits) return CellLook::Other;
        const CellLook whole = static_cast<CellLook>(static_cast<std::size_t>(CellLook::Whole) + count);
        const CellLook unsignedLook =
            size == 1 && first <= u'1' ? (first == u'0' ? CellLook::Zero : CellLook::One) : whole;
        return signs != 0 ? CellLook::SignedWhole : unsignedLook;
    }
    const std::uint64_t mark = BitsOf<&simd::CellMasks::Marks>(masks, begin) & cell;
    const std::uint64_t ends = (cell ^ cell >> 1) | (number & (0 - number));
    const bool isOneMark = mark != 0 && (mark & (mark - 1)) == 0 && (mark & ends) == 0;
    return isOneMark && (digits | mark) == number ? CellLook::Decimal : CellLook::Other;
}
}  // namespace kelvarin::plan
