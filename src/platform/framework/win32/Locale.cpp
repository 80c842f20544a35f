#include "platform/framework/Locale.h"

#include <clocale>
#include <cstring>
#include <ctime>

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

// The zone's rules in a year, which may have been others than today's. Those of the last year are kept: the
// system reads them anew for every call.
const TIME_ZONE_INFORMATION& ZoneIn(WORD year) {
    thread_local TIME_ZONE_INFORMATION zone{};
    thread_local WORD yearOfZone = 0;
    if (year != yearOfZone) {
        if (!GetTimeZoneInformationForYear(year, nullptr, &zone)) GetTimeZoneInformation(&zone);
        yearOfZone = year;
    }
    return zone;
}

// Local time of a moment in the years that the system can convert. False if it refuses.
bool ToLocalCalendar(std::int64_t seconds, SYSTEMTIME& shown) {
    const SYSTEMTIME utc = ToCalendar(seconds);
    return SystemTimeToTzSpecificLocalTime(&ZoneIn(utc.wYear), &utc, &shown) != FALSE;
}

// Writes a moment as GetDateFormatW or GetTimeFormatW do: by the user's settings once the user's locale is in
// force, else by the format of the locale "C". Empty for years that the system can't convert.
std::u16string LocalTimeText(std::int64_t seconds, decltype(GetDateFormatW)* write, DWORD flags,
                             const wchar_t* formatOfC) {
    SYSTEMTIME local{};
    if (seconds < FirstSecond || seconds >= LastSecond || !ToLocalCalendar(seconds, local)) return {};
    const bool isUsers = std::strcmp(std::setlocale(LC_TIME, nullptr), "C") != 0;
    constexpr int Capacity = 128;
    char16_t text[Capacity] = {};
    if (isUsers) {
        write(LOCALE_USER_DEFAULT, flags, &local, nullptr, W(text), Capacity);
    } else {
        write(LOCALE_INVARIANT, 0, &local, formatOfC, W(text), Capacity);
    }
    return text;
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
    if (first == '\0') return u'.';
    // Once per cell: the system is asked for the others alone, which the runtime's code page may lack.
    if (first == '.' || first == ',') return static_cast<unsigned char>(first);
    constexpr int Capacity = 4;
    char16_t point[Capacity] = {};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, W(point), Capacity) > 1 ? point[0] : u'.';
}

std::u16string LocaleDate(std::int64_t seconds) {
    return LocalTimeText(seconds, GetDateFormatW, DATE_SHORTDATE, L"MM/dd/yy");
}

std::u16string LocaleTime(std::int64_t seconds) {
    return LocalTimeText(seconds, GetTimeFormatW, 0, L"HH:mm:ss");
}

std::int64_t CurrentSeconds() {
    return std::time(nullptr);
}

bool ToLocalTime(std::int64_t seconds, LocalTime& local) {
    constexpr std::int64_t YearsHoldAnInt = std::int64_t{2'000'000'000} * 31'556'952;
    if (seconds > YearsHoldAnInt || seconds < -YearsHoldAnInt) return false;
    const std::int64_t cycles = TakeCycles(seconds);
    SYSTEMTIME shown{};
    if (!ToLocalCalendar(seconds, shown)) return false;
    local = {static_cast<int>(shown.wYear + cycles * CycleYears),
             shown.wMonth,
             shown.wDay,
             shown.wHour,
             shown.wMinute,
             shown.wSecond};
    return true;
}
