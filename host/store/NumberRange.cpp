#include "host/store/Sparkline.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>

namespace kelvarin::store {

NumberRange RangeOf(std::span<const double> numbers) {
    // Four lanes: each comparison would otherwise wait for the one before. What isn't a number leaves a lane
    // as it is.
    NumberRange range;
    __m128d lowest[2] = {_mm_set1_pd(range.Lowest), _mm_set1_pd(range.Lowest)};
    __m128d highest[2] = {_mm_set1_pd(range.Highest), _mm_set1_pd(range.Highest)};
    std::size_t i = 0;
    for (; i + 4 <= numbers.size(); i += 4) {
        for (std::size_t pair = 0; pair < 2; ++pair) {
            const __m128d values = _mm_loadu_pd(numbers.data() + i + 2 * pair);
            lowest[pair] = _mm_min_pd(values, lowest[pair]);
            highest[pair] = _mm_max_pd(values, highest[pair]);
        }
    }
    double lanes[4];
    _mm_storeu_pd(lanes, _mm_min_pd(lowest[0], lowest[1]));
    _mm_storeu_pd(lanes + 2, _mm_max_pd(highest[0], highest[1]));
    range = {std::min(lanes[0], lanes[1]), std::max(lanes[2], lanes[3])};
    for (; i < numbers.size(); ++i) range.Include({numbers[i], numbers[i]});
    return range;
}

NumberRange RangeOf(std::span<const std::int64_t> numbers) {
    if (numbers.empty()) return {};
    std::int64_t lowest = numbers.front();
    std::int64_t highest = lowest;
    for (const std::int64_t number : numbers) {
        lowest = number < lowest ? number : lowest;
        highest = number > highest ? number : highest;
    }
    return {static_cast<double>(lowest), static_cast<double>(highest)};
}

NumberRange RangeOf(std::span<const std::uint8_t> truthValues) {
    NumberRange range;
    if (std::find(truthValues.begin(), truthValues.end(), 0) != truthValues.end()) range.Include({0, 0});
    const auto isTrue = [](std::uint8_t value) { return value != 0; };
    if (std::any_of(truthValues.begin(), truthValues.end(), isTrue)) range.Include({1, 1});
    return range;
}

}  // namespace kelvarin::store
