// What the module takes from the runtime's locale and clock.
#pragma once

#include <cstdint>
#include <string>

// Sets all categories to the user's default, as the environment or the system says.
void UseUserLocale();

// The language of the system's own texts as ISO 639 names it; empty if it has none.
std::string SystemLanguage();

// First character of the locale's decimal point, "." if the locale has none.
char16_t LocaleDecimalPoint();

// The local date and the time of day of a moment, in seconds since 1970, as the locale writes them. In the
// locale "C", which is in force before UseUserLocale, MM/DD/YY and HH:MM:SS. Empty if it can't be written.
std::u16string LocaleDate(std::int64_t seconds);
std::u16string LocaleTime(std::int64_t seconds);

// Now, in seconds since 1970-01-01 00:00 UTC.
std::int64_t CurrentSeconds();

// A local calendar date and time of day. Month 1 to 12, day 1 to 31, year as people write it.
struct LocalTime {
    int Year, Month, Day, Hour, Minute, Second;
};

// Seconds since 1970 as local time. False if the year has no room in an int.
bool ToLocalTime(std::int64_t seconds, LocalTime& local);

// The moment of a local date and time, in seconds since 1970: of a time that occurs twice the first, of one
// that the zone skips the moment at which clocks would show it had they not been set forward. A day beyond
// the end of its month counts on into the next month. -1 if the year has no room in an int.
std::int64_t FromLocalTime(const LocalTime& local);
