// Reads texts as the dates, times of day and spans that people write, in any of the usual ways: more than the
// formats of the module can hold.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "host/plan/Calendar.h"

namespace kelvarin::plan {
// What the numbers of a date are, from left to right, where the text itself doesn't tell.
enum class DateOrder { YearFirst, DayFirst, MonthFirst };

// What a text alone can't tell; one style holds for all texts of a column.
struct TimeStyle {
    DateOrder Order = DateOrder::DayFirst;
    bool BeginsWithMinutes = false;  // "12:30" is minutes and seconds, "12:30:05" too with hundredths
    bool FractionIsCounted = false;  // "15:42:7" and "15:42.7" end in 7 milliseconds
    int Year = 0;                    // of dates without one, "Apr 29 06:00"; 0: there are none
    bool operator==(const TimeStyle&) const = default;
};

struct ParsedTime {
    bool HasDate = false;
    bool HasClock = false;
    bool IsSpan = false;               // days or hours beyond a clock were named, as in "3d 18:47:23"
    int Year = 0, Month = 0, Day = 0;  // with HasDate: a day of the calendar
    std::int64_t Clock = 0;            // ns since midnight or since the start; may exceed a day
    std::optional<int> ZoneMinutes;    // east of UTC, if the text names it

    // Nanoseconds since 1970 of the date and the clock as they are written, whatever the zone.
    std::int64_t Written() const;
};

// The time that the text is, white space and enclosing brackets or quotes left aside. Nothing for any other
// text: for one with more numbers than a time has, with an unknown word, or out of range. A plain number of
// fewer than 6 digits is none.
std::optional<ParsedTime> ParseTime(std::u16string_view text, const TimeStyle& style);

// As ParseTime, in the first order that fits; `year` is that of TimeStyle.
std::optional<ParsedTime> ParseInAnyOrder(std::u16string_view text, int year);

// As ParseTime, in each order, by DateOrder. Cheaper than three calls.
std::array<std::optional<ParsedTime>, 3> ParseInEachOrder(std::u16string_view text, int year);
}  // namespace kelvarin::plan
