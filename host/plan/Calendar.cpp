#include "host/plan/Calendar.h"

#include <chrono>

namespace kelvarin::plan {
int DaysOfMonth(int year, int month) {
    constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && isLeap ? 29 : Days[month - 1];
}

std::int64_t DaysSince1970(int year, int month, int day) {
    // Years from March on, so that the leap day is the last of its year; 400 years have 146,097 days.
    const int shifted = month > 2 ? year : year - 1;
    const int era = shifted / 400;
    const int ofEra = shifted - era * 400;
    const int ofYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return std::int64_t{era} * 146'097 + ofEra * 365 + ofEra / 4 - ofEra / 100 + ofYear - 719'468;
}

std::int64_t DaysOfWeekDate(int year, int week, int day) {
    constexpr std::int64_t FirstMonday = 4;  // 5 January 1970
    const std::int64_t fourth = DaysSince1970(year, 1, 4);
    const std::int64_t monday = fourth - ((fourth - FirstMonday) % 7 + 7) % 7;
    return monday + 7 * (week - 1) + day - 1;
}

CalendarDay CalendarDayOf(std::int64_t days) {
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{days}}};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}
}  // namespace kelvarin::plan
