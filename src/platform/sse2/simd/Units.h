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

// Writes a byte for each unit; false if one of them is above 0xFF, with the bytes then without meaning. The
// last step is made from where it is whole: a loop over the units left would take as long as all the others.
inline bool Narrow(const char16_t* text, std::size_t length, char* bytes) {
    if (length < UnitsPerLoad) {
        unsigned all = 0;
        for (std::size_t i = 0; i < length; ++i) {
            all |= text[i];
            bytes[i] = static_cast<char>(text[i]);
        }
        return all < 0x100;
    }
    __m128i all = _mm_setzero_si128();
    const auto narrow = [&](std::size_t at) {
        const __m128i units = LoadUnits(text + at);
        all = _mm_or_si128(all, units);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes + at), _mm_packus_epi16(units, units));
    };
    for (std::size_t at = 0; at + UnitsPerLoad < length; at += UnitsPerLoad) narrow(at);
    narrow(length - UnitsPerLoad);
    const __m128i high = _mm_srli_epi16(all, 8);
    return _mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) == 0xFFFF;
}

// Eight bytes, widened.
inline __m128i LoadUnits(const char* text) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(text));
    return _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
}

// A bit for each of 16 units, the first in the lowest: whether it is zero.
inline unsigned ZerosOf(const char16_t* text) {
    const auto areZero = [](const char16_t* units) {
        return _mm_cmpeq_epi16(LoadUnits(units), _mm_setzero_si128());
    };
    const __m128i all = _mm_packs_epi16(areZero(text), areZero(text + UnitsPerLoad));
    return static_cast<unsigned>(_mm_movemask_epi8(all));
}

inline unsigned ZerosOf(const char* text) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128())));
}

// The units before the terminating zero. Up to 31 units behind it are read: texts of a column differ in
// length, so that a loop of shorter steps would have a number of them that can't be predicted.
template <class Unit>
std::size_t LengthOf(const Unit* text) {
    for (std::size_t length = 0;; length += 32) {
        const unsigned zeros = ZerosOf(text + length) | ZerosOf(text + length + 16) << 16;
        if (zeros != 0) return length + static_cast<std::size_t>(std::countr_zero(zeros));
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

// Copies UnitsPerMask bytes and finds the same in them. Those beyond ASCII count as low.
inline UnitMasks CopyBytes(const char* text, char separator, char* copy) {
    UnitMasks masks;
    std::uint64_t high = 0;
    for (std::size_t at = 0; at < UnitsPerMask; at += BytesPerBlock) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + at));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(copy + at), bytes);
        const auto maskOf = [at](__m128i where) -> std::uint64_t {
            return std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(where))} << at;
        };
        masks.Separators |= maskOf(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(separator)));
        masks.Quotes |= maskOf(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('"')));
        high |= maskOf(_mm_cmpgt_epi8(bytes, _mm_set1_epi8('\r')));
    }
    masks.Low = ~high;
    return masks;
}

}  // namespace simd
