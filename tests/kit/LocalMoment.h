// Moments of local time by way of the runtime, so that an expectation holds in every time zone.
#pragma once

#include <cstdint>

#include "platform/framework/Locale.h"

// A local date and time in seconds since 1970.
inline std::int64_t LocalSeconds(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return FromLocalTime({year, month, day, hour, minute, second});
}

// The same in nanoseconds.
inline std::int64_t LocalTime64(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return LocalSeconds(year, month, day, hour, minute, second) * 1'000'000'000;
}
