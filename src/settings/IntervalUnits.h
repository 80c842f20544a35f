// The units of a fixed interval between two rows.
#pragma once

#include <cstdint>

struct IntervalUnit {
    const char16_t* Name;  // as sidecars and bracket fields of formats write it
    std::int64_t Nanoseconds;
};

// In the order of the setting IntervalUnit, the largest first.
inline constexpr IntervalUnit IntervalUnits[6] = {
    {u"h", 3'600'000'000'000}, {u"min", 60'000'000'000}, {u"s", 1'000'000'000},
    {u"ms", 1'000'000},        {u"µs", 1'000},           {u"ns", 1}};
