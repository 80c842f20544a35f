// Moments of local time by way of the runtime, so that an expectation holds in every time zone.
#pragma once

#include <cstdint>
#include <ctime>

// A local date and time in seconds since 1970.
inline std::int64_t LocalSeconds(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    local.tm_isdst = -1;
    return std::mktime(&local);
}

// The same in nanoseconds.
inline std::int64_t LocalTime64(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return LocalSeconds(year, month, day, hour, minute, second) * 1'000'000'000;
}
