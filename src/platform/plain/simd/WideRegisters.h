// What other libraries leave in the registers.
#pragma once

namespace simd {

// To be called after a library that may leave registers in a state that slows ours down; this processor has
// none.
inline void ClearUpperHalves() {}

}  // namespace simd
