// The bytes of numbers, those of one place together.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

namespace simd {

// Eight rows of eight bytes become eight planes of eight bytes, each `stride` bytes after the one before.
inline void TransposeEight(const std::uint8_t* in, std::uint8_t* out, std::size_t stride) {
    const auto load = [&](std::size_t pair) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + pair * sizeof(__m128i)));
    };
    const __m128i row01 = load(0);
    const __m128i row23 = load(1);
    const __m128i row45 = load(2);
    const __m128i row67 = load(3);
    const auto interleave = [](__m128i a) { return _mm_unpacklo_epi8(a, _mm_unpackhi_epi64(a, a)); };
    const __m128i bytes01 = interleave(row01);
    const __m128i bytes23 = interleave(row23);
    const __m128i bytes45 = interleave(row45);
    const __m128i bytes67 = interleave(row67);
    const __m128i low0123 = _mm_unpacklo_epi16(bytes01, bytes23);
    const __m128i high0123 = _mm_unpackhi_epi16(bytes01, bytes23);
    const __m128i low4567 = _mm_unpacklo_epi16(bytes45, bytes67);
    const __m128i high4567 = _mm_unpackhi_epi16(bytes45, bytes67);
    const auto store = [&](std::size_t plane, __m128i two) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + plane * stride), two);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + (plane + 1) * stride),
                         _mm_unpackhi_epi64(two, two));
    };
    store(0, _mm_unpacklo_epi32(low0123, low4567));
    store(2, _mm_unpackhi_epi32(low0123, low4567));
    store(4, _mm_unpacklo_epi32(high0123, high4567));
    store(6, _mm_unpackhi_epi32(high0123, high4567));
}

}  // namespace simd
