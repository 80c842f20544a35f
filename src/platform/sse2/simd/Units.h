// Steps over several UTF-16 units or bytes of text at once.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace simd {

constexpr std::size_t UnitsPerLoad = 8;
constexpr std::size_t UnitsPerMask = 64;
constexpr std::size_t BytesPerBlock = 16;

inline __m128i LoadUnits(const char16_t* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

// Widens BytesPerBlock bytes; false if they are not all ASCII, with `out` then left alone.
inline bool WidenBlock(const char* bytes, char16_t* out) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    if (_mm_movemask_epi8(block) != 0) return false;
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(block, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm_unpackhi_epi8(block, zero));
    return true;
}

// Writes a byte for each unit; false if one of them is above 0xFF, with the bytes then without meaning.
inline bool Narrow(const char16_t* text, std::size_t length, char* bytes) {
    __m128i all = _mm_setzero_si128();
    std::size_t i = 0;
    for (; i + UnitsPerLoad <= length; i += UnitsPerLoad) {
        const __m128i units = LoadUnits(text + i);
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

// The units before the terminating zero. Up to UnitsPerLoad - 1 units behind it are read.
inline std::size_t LengthOf(const char16_t* text) {
    for (std::size_t length = 0;; length += UnitsPerLoad) {
        const __m128i areZero = _mm_cmpeq_epi16(LoadUnits(text + length), _mm_setzero_si128());
        const auto zeros = static_cast<unsigned>(_mm_movemask_epi8(areZero));
        if (zeros != 0) return length + static_cast<std::size_t>(std::countr_zero(zeros)) / 2;
    }
}

// UnitsPerMask units with a bit for each, the first in the lowest.
struct UnitMasks {
    std::uint64_t Separators = 0;
    std::uint64_t Quotes = 0;  // double ones
    std::uint64_t Low = 0;     // up to the carriage return
};

inline UnitMasks FindUnits(const char16_t* text, char16_t separator) {
    const auto maskOf = [](__m128i first, __m128i second) -> std::uint64_t {
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second)));
    };
    const auto equal = [](__m128i units, char16_t c) {
        return _mm_cmpeq_epi16(units, _mm_set1_epi16(static_cast<short>(c)));
    };
    const auto areLow = [](__m128i units) {
        return _mm_cmpeq_epi16(_mm_subs_epu16(units, _mm_set1_epi16(u'\r')), _mm_setzero_si128());
    };
    UnitMasks masks;
    for (std::size_t at = 0; at < UnitsPerMask; at += 2 * UnitsPerLoad) {
        const __m128i first = LoadUnits(text + at);
        const __m128i second = LoadUnits(text + at + UnitsPerLoad);
        masks.Separators |= maskOf(equal(first, separator), equal(second, separator)) << at;
        masks.Quotes |= maskOf(equal(first, u'"'), equal(second, u'"')) << at;
        masks.Low |= maskOf(areLow(first), areLow(second)) << at;
    }
    return masks;
}

}  // namespace simd
