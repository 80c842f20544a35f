// The lowest and the highest of many numbers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

namespace simd {

// Lowers `lowest` and raises `highest` to what is among the numbers. What is not a number is left out.
inline void IncludeAll(std::span<const double> numbers, double& lowest, double& highest) {
    // Of equal ones the second: zeros differ in their signs, and the order is that of the SSE2 code.
    const auto lower = [](double a, double b) { return a < b ? a : b; };
    const auto higher = [](double a, double b) { return a > b ? a : b; };
    // Four lanes: each comparison would otherwise wait for the one before.
    constexpr std::size_t Lanes = 4;
    double low[Lanes] = {lowest, lowest, lowest, lowest};
    double high[Lanes] = {highest, highest, highest, highest};
    std::size_t i = 0;
    for (; i + Lanes <= numbers.size(); i += Lanes) {
        for (std::size_t lane = 0; lane < Lanes; ++lane) {
            low[lane] = lower(numbers[i + lane], low[lane]);
            high[lane] = higher(numbers[i + lane], high[lane]);
        }
    }
    lowest = std::min(lower(low[0], low[2]), lower(low[1], low[3]));
    highest = std::max(higher(high[0], high[2]), higher(high[1], high[3]));
    for (; i < numbers.size(); ++i) {
        if (numbers[i] < lowest) lowest = numbers[i];
        if (numbers[i] > highest) highest = numbers[i];
    }
}

}  // namespace simd
