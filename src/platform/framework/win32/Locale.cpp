#include "platform/framework/Locale.h"

#include <clocale>
#include <ctime>
#include <cwchar>

#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"

// The runtime's own local time knows neither negative times nor zones named in the environment; the system's
// does.
namespace {

constexpr std::int64_t TicksPerSecond = 10'000'000;
constexpr std::int64_t EpochSeconds = 11'644'473'600;  // from 1601 to 1970

// The calendar repeats after 400 years, weekdays included; by whole cycles any time comes into the years that
// the system can convert.
constexpr std::int64_t CycleSeconds = std::int64_t{146'097} * 86'400;
constexpr int CycleYears = 400;
constexpr std::int64_t FirstSecond = -EpochSeconds + 2 * 86'400;
constexpr std::int64_t LastSecond = FirstSecond + 20 * CycleSeconds;

// Moves the seconds into the convertible years and answers the cycles to add to the result.
std::int64_t TakeCycles(std::int64_t& seconds) {
    std::int64_t cycles = 0;
    if (seconds < FirstSecond) cycles = -((FirstSecond - seconds) / CycleSeconds + 1);
    if (seconds >= LastSecond) cycles = (seconds - LastSecond) / CycleSeconds + 1;
    seconds -= cycles * CycleSeconds;
    return cycles;
}

SYSTEMTIME ToCalendar(std::int64_t seconds) {
    const std::int64_t ticks = (seconds + EpochSeconds) * TicksPerSecond;
    const FILETIME moment{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME calendar{};
    FileTimeToSystemTime(&moment, &calendar);
    return calendar;
}

std::int64_t FromCalendar(const SYSTEMTIME& calendar) {
    FILETIME moment{};
    SystemTimeToFileTime(&calendar, &moment);
    const std::uint64_t ticks = std::uint64_t{moment.dwHighDateTime} << 32 | moment.dwLowDateTime;
    return static_cast<std::int64_t>(ticks) / TicksPerSecond - EpochSeconds;
}

// The zone's rules in a year, which may have been others than today's.
TIME_ZONE_INFORMATION ZoneIn(WORD year) {
    TIME_ZONE_INFORMATION zone{};
    if (!GetTimeZoneInformationForYear(year, nullptr, &zone)) GetTimeZoneInformation(&zone);
    return zone;
}

// Days from 1970 to a date of the calendar, by years that begin in March.
std::int64_t DaysTo(int year, int month, int day) {
    const std::int64_t y = std::int64_t{year} - (month <= 2 ? 1 : 0);
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

}  // namespace

void UseUserLocale() {
    std::setlocale(LC_ALL, "");
}

std::string SystemLanguage() {
    constexpr int Capacity = 16;
    char16_t name[Capacity] = {};
    const LCID locale = MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT);
    GetLocaleInfoW(locale, LOCALE_SISO639LANGNAME, W(name), Capacity);
    return Utf16ToUtf8(name);
}

char16_t LocaleDecimalPoint() {
    const char first = *std::localeconv()->decimal_point;
    return first == 0 ? u'.' : static_cast<unsigned char>(first);
}

std::u16string LocaleDateToday() {
    LocalTime local{};
    if (!ToLocalTime(CurrentSeconds(), local)) return {};
    std::tm parts{};
    parts.tm_year = local.Year - 1900;
    parts.tm_mon = local.Month - 1;
    parts.tm_mday = local.Day;
    constexpr std::size_t Capacity = 128;
    wchar_t text[Capacity];
    return {FromW(text), std::wcsftime(text, Capacity, L"%x", &parts)};
}

std::int64_t CurrentSeconds() {
    return std::time(nullptr);
}

bool ToLocalTime(std::int64_t seconds, LocalTime& local) {
    constexpr std::int64_t YearsHoldAnInt = std::int64_t{2'000'000'000} * 31'556'952;
    if (seconds > YearsHoldAnInt || seconds < -YearsHoldAnInt) return false;
    const std::int64_t cycles = TakeCycles(seconds);
    const SYSTEMTIME utc = ToCalendar(seconds);
    const TIME_ZONE_INFORMATION zone = ZoneIn(utc.wYear);
    SYSTEMTIME shown{};
    if (!SystemTimeToTzSpecificLocalTime(&zone, &utc, &shown)) return false;
    local = {static_cast<int>(shown.wYear + cycles * CycleYears),
             shown.wMonth,
             shown.wDay,
             shown.wHour,
             shown.wMinute,
             shown.wSecond};
    return true;
}

std::int64_t FromLocalTime(const LocalTime& local) {
    std::int64_t seconds = DaysTo(local.Year, local.Month, local.Day) * 86'400 + local.Hour * 3'600 +
                           local.Minute * 60 + local.Second;
    const std::int64_t cycles = TakeCycles(seconds);
    const SYSTEMTIME shown = ToCalendar(seconds);
    const TIME_ZONE_INFORMATION zone = ZoneIn(shown.wYear);
    SYSTEMTIME utc{};
    if (!TzSpecificLocalTimeToSystemTime(&zone, &shown, &utc)) return -1;
    return FromCalendar(utc) + cycles * CycleSeconds;
}
