// Lengths of time in nanoseconds.
#pragma once

#include <cstdint>

namespace kelvarin::plan {
constexpr std::int64_t Millisecond = 1'000'000;
constexpr std::int64_t Second = 1000 * Millisecond;
constexpr std::int64_t Minute = 60 * Second;
constexpr std::int64_t Hour = 60 * Minute;
constexpr std::int64_t DayLength = 24 * Hour;
}  // namespace kelvarin::plan
