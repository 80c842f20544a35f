// Runs of up to eight digits, all of them compared, weighted and summed at once.
#pragma once

#include <bit>
#include <cstdint>

#include "simd/Units.h"

namespace simd {

constexpr unsigned MostDigits = 8;  // of a run

// The digits at one place of a text, in the first lanes; zeros in the others.
struct DigitRun {
    __m128i Digits;
    unsigned Count;
};

// All ones in as many lanes from the left as the row says.
alignas(16) inline constexpr std::int16_t FirstLanes[MostDigits + 1][UnitsPerLoad] = {
    {},
    {-1},
    {-1, -1},
    {-1, -1, -1},
    {-1, -1, -1, -1},
    {-1, -1, -1, -1, -1},
    {-1, -1, -1, -1, -1, -1},
    {-1, -1, -1, -1, -1, -1, -1},
    {-1, -1, -1, -1, -1, -1, -1, -1}};

// Reads MostDigits units.
template <class Unit>
DigitRun ReadDigits(const Unit* text) {
    const __m128i digits = _mm_sub_epi16(LoadUnits(text), _mm_set1_epi16(u'0'));
    // Comparisons are signed: seen from the lowest number, digits are the ten least.
    constexpr std::int16_t Lowest = -0x8000;
    const __m128i others =
        _mm_cmpgt_epi16(_mm_add_epi16(digits, _mm_set1_epi16(Lowest)), _mm_set1_epi16(Lowest + 9));
    const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(others)) | 0x10000;
    const auto count = static_cast<unsigned>(std::countr_zero(bytes)) / 2;
    return {_mm_and_si128(digits, *reinterpret_cast<const __m128i*>(FirstLanes[count])), count};
}

// Factors that join neighbours: 1 to 2 digits, 2 to 4, 4 to 8.
inline __m128i Join(__m128i numbers, int factor) {
    return _mm_madd_epi16(numbers, _mm_set1_epi32(1 << 16 | factor));
}

// A run as a number of eight digits, the missing ones zeros at its end.
inline std::uint32_t JoinDigits(const DigitRun& run) {
    const __m128i twos = Join(run.Digits, 10);
    const __m128i fours = Join(_mm_packs_epi32(twos, twos), 100);
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(Join(_mm_packs_epi32(fours, fours), 10'000)));
}

// Two runs at once: the first in the lower half, the second in the upper.
inline std::uint64_t JoinDigits(const DigitRun& first, const DigitRun& second) {
    const __m128i fours = Join(_mm_packs_epi32(Join(first.Digits, 10), Join(second.Digits, 10)), 100);
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(Join(_mm_packs_epi32(fours, fours), 10'000)));
}

// A hexadecimal number of up to eight digits.
struct HexRun {
    std::uint64_t Number;
    unsigned Count;  // of the digits; 0 to MostDigits
};

// Reads MostDigits units.
template <class Unit>
HexRun ReadHexDigits(const Unit* text) {
    const __m128i units = LoadUnits(text);
    const auto isBetween = [](__m128i lanes, std::int16_t first, std::int16_t last) {
        return _mm_cmpeq_epi16(_mm_subs_epu16(_mm_sub_epi16(lanes, _mm_set1_epi16(first)),
                                              _mm_set1_epi16(static_cast<std::int16_t>(last - first))),
                               _mm_setzero_si128());
    };
    const __m128i areDecimal = isBetween(units, u'0', u'9');
    const __m128i areLetters = isBetween(_mm_or_si128(units, _mm_set1_epi16(0x20)), u'a', u'f');
    const __m128i areDigits = _mm_or_si128(areDecimal, areLetters);
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(areDigits));
    const unsigned count = static_cast<unsigned>(std::countr_one(mask)) / 2;
    if (count == 0) return {0, 0};
    // Each lane its four bits, those of a letter being one to six and nine; the first digit the highest.
    const __m128i nine = _mm_and_si128(areLetters, _mm_set1_epi16(9));
    const __m128i low = _mm_and_si128(areDigits, _mm_and_si128(units, _mm_set1_epi16(0xF)));
    const __m128i fours = _mm_add_epi16(low, nine);
    const __m128i eights = _mm_madd_epi16(fours, _mm_set1_epi32(1 << 16 | 16));
    const __m128i sixteens = _mm_madd_epi16(_mm_packs_epi32(eights, eights), _mm_set1_epi32(1 << 16 | 256));
    const auto words = static_cast<std::uint64_t>(_mm_cvtsi128_si64(sixteens));
    const std::uint64_t all = (words & 0xFFFF) << 16 | words >> 32;
    return {all >> (4 * (MostDigits - count)), count};
}

}  // namespace simd
