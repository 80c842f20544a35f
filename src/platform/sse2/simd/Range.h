// The lowest and the highest of many numbers.
#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <span>

namespace simd {

// Lowers `lowest` and raises `highest` to what is among the numbers. What is not a number is left out.
inline void IncludeAll(std::span<const double> numbers, double& lowest, double& highest) {
    // Four lanes: each comparison would otherwise wait for the one before. What isn't a number leaves a lane
    // as it is.
    __m128d low[2] = {_mm_set1_pd(lowest), _mm_set1_pd(lowest)};
    __m128d high[2] = {_mm_set1_pd(highest), _mm_set1_pd(highest)};
    std::size_t i = 0;
    for (; i + 4 <= numbers.size(); i += 4) {
        for (std::size_t pair = 0; pair < 2; ++pair) {
            const __m128d values = _mm_loadu_pd(numbers.data() + i + 2 * pair);
            low[pair] = _mm_min_pd(values, low[pair]);
            high[pair] = _mm_max_pd(values, high[pair]);
        }
    }
    double lanes[4];
    _mm_storeu_pd(lanes, _mm_min_pd(low[0], low[1]));
    _mm_storeu_pd(lanes + 2, _mm_max_pd(high[0], high[1]));
    lowest = std::min(lanes[0], lanes[1]);
    highest = std::max(lanes[2], lanes[3]);
    for (; i < numbers.size(); ++i) {
        if (numbers[i] < lowest) lowest = numbers[i];
        if (numbers[i] > highest) highest = numbers[i];
    }
}

}  // namespace simd
