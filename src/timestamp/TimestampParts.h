// What the fields of one value have said, and the time that they make together.
#pragma once

#include <cstdint>

#include "timestamp/FormatFields.h"

// The state of reading one value; starts anew for each.
struct TimestampParts {
    std::int32_t Year = -1, Month = -1, Day = -1;
    std::int32_t Hours = 0, Minutes = 0, Seconds = 0;
    std::int64_t SubSecond = 0;  // nanoseconds
    std::int32_t Exponent = 0;   // of ten, over the whole time part
    std::int64_t Sign = 1;
    double Unit = 1e9;  // what a fraction is a fraction of, in nanoseconds

    // Takes the number of a field. Numbers beyond a part's size are cut, sums wrap.
    void Store(FieldKind kind, const FieldNumber& number);

    // Hours to nanoseconds with sign and exponent, in nanoseconds.
    std::int64_t TimePart() const;

    // The local midnight of the date in nanoseconds since 1970. NoTimestamp if the date is missing, doesn't
    // exist or lies outside 1970 to 2115.
    std::int64_t DatePart() const;
};
