#include "host/store/Sparkline.h"

#include <algorithm>

#include "simd/Range.h"

namespace kelvarin::store {
NumberRange RangeOf(std::span<const double> numbers) {
    NumberRange range;
    simd::IncludeAll(numbers, range.Lowest, range.Highest);
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
