// The units of an interval between rows.
#pragma once

#include <cstdint>
#include <iterator>

struct IntervalUnit {
    const char16_t* Name;      // as sidecars write it
    std::int64_t Nanoseconds;  // of one
};

// In the order of the setting IntervalUnit. A new unit also needs its entry in the dialog's list, and the
// setting's highest value comes from here.
inline constexpr IntervalUnit IntervalUnits[] = {
    {u"h", 3'600'000'000'000}, {u"min", 60'000'000'000}, {u"s", 1'000'000'000},
    {u"ms", 1'000'000},        {u"µs", 1'000},           {u"ns", 1},
};
inline constexpr int IntervalUnitCount = static_cast<int>(std::size(IntervalUnits));
