// Where a time axis has its marks, and what stands at them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "view/model/Clock.h"
#include "view/model/TimeRange.h"

namespace kelvarin::view {
struct TimeTick {
    std::int64_t At = 0;
    std::string Label;  // a second line, after a line feed, where the date is another than at the mark before
};

struct TimeTicks {
    std::vector<TimeTick> Marks;
    std::vector<std::int64_t> Between;  // without labels
    std::string Base;                   // the moment that labels such as "+250 µs" count from; else empty
};

// At round times of the clock, years down to a nanosecond, and at most `most` of them, which is at least 2.
TimeTicks TicksOf(const Clock& clock, const TimeRange& range, int most);
}  // namespace kelvarin::view
