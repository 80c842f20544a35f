// A part of the time axis.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/framework/Numbers.h"

namespace kelvarin::view {
// Moments in nanoseconds on the scale of CTimeStamp. To is later than From.
struct TimeRange {
    std::int64_t From = 0;
    std::int64_t To = 1;

    // Nanoseconds.
    double Length() const {
        return static_cast<double>(static_cast<std::uint64_t>(To) - static_cast<std::uint64_t>(From));
    }

    // A moment as a distance from the start in nanoseconds, exact where the range is short.
    double OffsetOf(std::int64_t time) const { return static_cast<double>(WrappingSubtract(time, From)); }

    bool operator==(const TimeRange&) const = default;
};

// The least range that has both.
inline TimeRange United(const TimeRange& one, const TimeRange& other) {
    return {std::min(one.From, other.From), std::max(one.To, other.To)};
}
}  // namespace kelvarin::view
