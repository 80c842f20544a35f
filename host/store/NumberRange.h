// The lowest and the highest of many numbers.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

namespace kelvarin::store {

// Empty at the start. What is not a number is left out; infinities count.
struct NumberRange {
    double Lowest = std::numeric_limits<double>::infinity();
    double Highest = -std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return Lowest > Highest; }

    void Include(const NumberRange& other) {
        if (other.Lowest < Lowest) Lowest = other.Lowest;
        if (other.Highest > Highest) Highest = other.Highest;
    }
};

NumberRange RangeOf(std::span<const double> numbers);
NumberRange RangeOf(std::span<const std::int64_t> numbers);
NumberRange RangeOf(std::span<const std::uint8_t> truthValues);  // 0 and 1

}  // namespace kelvarin::store
