// The bytes of numbers, those of one place together.
#pragma once

#include <cstddef>
#include <cstdint>

namespace simd {

// Eight rows of eight bytes become eight planes of eight bytes, each `stride` bytes after the one before.
inline void TransposeEight(const std::uint8_t* in, std::uint8_t* out, std::size_t stride) {
    for (std::size_t row = 0; row < 8; ++row) {
        for (std::size_t plane = 0; plane < 8; ++plane) out[plane * stride + row] = in[row * 8 + plane];
    }
}

}  // namespace simd
