// Moments as people read them, to the nanosecond.
#pragma once

#include <cstdint>
#include <string>

namespace kelvarin::view {
// How moments are shown.
enum class ClockStyle {
    Local,    // the clocks of the user's zone, as the file has them
    Zoned,    // the same with the distance from UTC behind: "2024-01-31 08:00:00+01:00"
    Utc,      // "2024-01-31 07:00:00Z"
    Relative  // the time since a start: "00:00:01.5"
};

struct Clock {
    ClockStyle Style = ClockStyle::Local;
    std::int64_t Start = 0;  // of Relative, nanoseconds

    bool operator==(const Clock&) const = default;
};

// A moment with all digits that it has, at least `digits` of the second.
std::string MomentText(const Clock& clock, std::int64_t time, int digits = 0);

// The same in two parts, for axes: the date, empty under Relative, and the time of day without a zone.
struct MomentParts {
    std::string Date;
    std::string Time;
};
MomentParts PartsOf(const Clock& clock, std::int64_t time, int digits);

// What the clock shows less UTC at a moment, in nanoseconds; under Relative the start with its sign changed.
std::int64_t OffsetOf(const Clock& clock, std::int64_t time);

// A duration with its sign: "-12.5 ms", "+1.000000001 s", exact to the nanosecond.
std::string DurationText(std::int64_t nanoseconds);

// Reads a moment as MomentText writes it, or only its date, or its time of day on the date of `day`; under
// Relative also a number of seconds. False for any other text.
bool ReadMoment(const Clock& clock, const std::string& text, std::int64_t day, std::int64_t& time);
}  // namespace kelvarin::view
