// What other libraries leave in the registers.
#pragma once

#include <immintrin.h>

namespace simd {

inline const bool HasWideRegisters = __builtin_cpu_supports("avx") != 0;

[[gnu::target("avx")]] inline void ZeroUpperHalves() {
    _mm256_zeroupper();
}

// To be called after a library that leaves the upper halves of the registers in use: all arithmetic of ours
// would wait for them.
inline void ClearUpperHalves() {
    if (HasWideRegisters) ZeroUpperHalves();
}

}  // namespace simd
