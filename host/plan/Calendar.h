// Days of the Gregorian calendar.
#pragma once

#include <cstdint>

namespace kelvarin::plan {
struct CalendarDay {
    int Year = 1970, Month = 1, Day = 1;
};

// Of a month from 1 to 12.
int DaysOfMonth(int year, int month);

// Days since 1970 of a day of the calendar.
std::int64_t DaysSince1970(int year, int month, int day);

// Days since 1970 of a day from 1 to 7 of a week from 1 to 53: the first week of a year has the 4 January,
// and weeks begin on Mondays.
std::int64_t DaysOfWeekDate(int year, int week, int day);

// The day that is so many days after 1 January 1970.
CalendarDay CalendarDayOf(std::int64_t days);
}  // namespace kelvarin::plan
