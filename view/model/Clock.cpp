#include "view/model/Clock.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "contract/TimeStamp.h"
#include "host/plan/Durations.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::view {
namespace {
using plan::DayLength;
using plan::Hour;
using plan::Minute;
using plan::Second;

template <class... Numbers>
std::string Formatted(const char* format, Numbers... numbers) {
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), format, numbers...);
    return text.data();
}

std::int64_t FloorTo(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

// Decimals of a second without zeros at the end, but at least `digits` of them.
std::string Decimals(std::int64_t nanoseconds, int digits) {
    std::string text = Formatted("%09lld", static_cast<long long>(nanoseconds));
    while (text.size() > static_cast<std::size_t>(digits) && text.back() == '0') text.pop_back();
    return text.empty() ? text : "." + text;
}

// The time of a day, or any duration that is not negative.
std::string DaytimeText(std::int64_t time, int digits) {
    const auto hours = static_cast<long long>(time / Hour);
    const auto minutes = static_cast<int>(time % Hour / Minute);
    const auto seconds = static_cast<int>(time % Minute / Second);
    return Formatted("%02lld:%02d:%02d", hours, minutes, seconds) + Decimals(time % Second, digits);
}

std::string DateText(std::int64_t time) {
    const std::chrono::sys_days day{std::chrono::days(FloorTo(time, DayLength) / DayLength)};
    const std::chrono::year_month_day date(day);
    return Formatted("%04d-%02u-%02u", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                     static_cast<unsigned>(date.day()));
}

std::string ZoneText(std::int64_t offset) {
    const std::int64_t minutes = std::abs(offset) / Minute;
    return Formatted("%c%02d:%02d", offset < 0 ? '-' : '+', static_cast<int>(minutes / 60),
                     static_cast<int>(minutes % 60));
}

// Nanoseconds since 1970 of a local date and time, read as if it were UTC; the texts are those of ToText.
std::int64_t LocalAsUtc(std::int64_t time) {
    const std::string text = Utf16ToUtf8(CTimeStamp(FloorTo(time, Second)).ToText());
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (std::sscanf(text.c_str(), "%d-%u-%u %d:%d:%d", &year, &month, &day, &hour, &minute, &second) != 6)
        return FloorTo(time, Second);
    const std::chrono::sys_days date =
        std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    return date.time_since_epoch().count() * DayLength + hour * Hour + minute * Minute + second * Second;
}

// Digits and a point as nanoseconds; false for any other text.
bool ReadSeconds(const std::string& text, std::int64_t& nanoseconds) {
    const std::size_t point = text.find('.');
    const std::string whole = text.substr(0, point);
    std::string decimals = point == std::string::npos ? "" : text.substr(point + 1);
    if (whole.empty() || decimals.size() > 9) return false;
    decimals.resize(9, '0');
    std::int64_t seconds = 0;
    std::int64_t rest = 0;
    const auto read = [](const std::string& digits, std::int64_t& number) {
        const char* const end = digits.data() + digits.size();
        const std::from_chars_result result = std::from_chars(digits.data(), end, number);
        return result.ec == std::errc() && result.ptr == end;
    };
    if (!read(whole, seconds) || !read(decimals, rest) || seconds < 0 || rest < 0) return false;
    constexpr std::int64_t Most = INT64_MAX / Second - 1;
    nanoseconds = std::min(seconds, Most) * Second + rest;
    return seconds <= Most;
}

// "hh:mm", "hh:mm:ss" or "hh:mm:ss.n", or seconds alone.
bool ReadDaytime(const std::string& text, std::int64_t& time) {
    const std::size_t first = text.find(':');
    if (first == std::string::npos) return ReadSeconds(text, time);
    const std::size_t second = text.find(':', first + 1);
    std::int64_t hours = 0;
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;
    const std::size_t length = second == std::string::npos ? second : second - first - 1;
    if (!ReadSeconds(text.substr(0, first), hours) || !ReadSeconds(text.substr(first + 1, length), minutes))
        return false;
    if (second != std::string::npos && !ReadSeconds(text.substr(second + 1), seconds)) return false;
    if (hours > 1'000'000 * Second || minutes >= Minute || seconds >= Minute) return false;
    time = hours * 3600 + minutes * 60 + seconds;
    return hours % Second == 0 && minutes % Second == 0;
}

bool ReadDate(const std::string& text, std::int64_t& date) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int used = 0;
    const int read = std::sscanf(text.c_str(), "%4d-%2u-%2u%n", &year, &month, &day, &used);
    if (read != 3 || static_cast<std::size_t>(used) != text.size()) return false;
    const auto civil = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    if (!civil.ok() || year < 1970 || year > 2200) return false;
    date = std::chrono::sys_days(civil).time_since_epoch().count() * DayLength;
    return true;
}

// The moment at which the clock shows what UTC shows at `shown`.
std::int64_t MomentOf(const Clock& clock, std::int64_t shown) {
    const std::int64_t guess = shown - OffsetOf(clock, shown);
    return shown - OffsetOf(clock, guess);
}
}  // namespace

std::int64_t OffsetOf(const Clock& clock, std::int64_t time) {
    switch (clock.Style) {
        case ClockStyle::Utc:
            return 0;
        case ClockStyle::Relative:
            return -clock.Start;
        default:
            return LocalAsUtc(time) - FloorTo(time, Second);
    }
}

MomentParts PartsOf(const Clock& clock, std::int64_t time, int digits) {
    if (clock.Style == ClockStyle::Relative) {
        const std::int64_t since = WrappingSubtract(time, clock.Start);
        if (since >= 0) return {{}, DaytimeText(since, digits)};
        return {{}, "-" + DaytimeText(since == INT64_MIN ? INT64_MAX : -since, digits)};
    }
    const std::int64_t shown = time + OffsetOf(clock, time);
    return {DateText(shown), DaytimeText(shown - FloorTo(shown, DayLength), digits)};
}

std::string MomentText(const Clock& clock, std::int64_t time, int digits) {
    const MomentParts parts = PartsOf(clock, time, digits);
    if (clock.Style == ClockStyle::Relative) return parts.Time;
    const std::string text = parts.Date + " " + parts.Time;
    if (clock.Style == ClockStyle::Utc) return text + "Z";
    return clock.Style == ClockStyle::Zoned ? text + ZoneText(OffsetOf(clock, time)) : text;
}

std::string DurationText(std::int64_t nanoseconds) {
    const std::string sign = nanoseconds < 0 ? "-" : "+";
    const std::int64_t size = nanoseconds == INT64_MIN ? INT64_MAX : std::abs(nanoseconds);
    if (size >= 2 * Minute) return sign + DaytimeText(size, 0);
    const struct {
        std::int64_t Size;
        const char* Name;
    } units[] = {{Second, " s"}, {1'000'000, " ms"}, {1'000, " µs"}, {1, " ns"}};
    for (const auto& unit : units) {
        if (size < unit.Size && unit.Size != 1) continue;
        const std::int64_t rest = size % unit.Size * (Second / unit.Size);
        return sign + std::to_string(size / unit.Size) + Decimals(rest, 0) + unit.Name;
    }
    return {};
}

bool ReadMoment(const Clock& clock, const std::string& text, std::int64_t day, std::int64_t& time) {
    if (clock.Style == ClockStyle::Relative) {
        const bool isNegative = text.starts_with('-');
        std::int64_t since = 0;
        if (!ReadDaytime(text.substr(isNegative ? 1 : 0), since)) return false;
        time = clock.Start + (isNegative ? -since : since);
        return true;
    }
    const std::size_t space = text.find_first_of(" T");
    std::int64_t date = FloorTo(day + OffsetOf(clock, day), DayLength);
    std::int64_t daytime = 0;
    const bool hasDate = text.find('-') != std::string::npos;
    if (hasDate && !ReadDate(text.substr(0, space), date)) return false;
    const bool hasTime = !hasDate || space != std::string::npos;
    if (hasTime && !ReadDaytime(hasDate ? text.substr(space + 1) : text, daytime)) return false;
    time = MomentOf(clock, date + daytime);
    return true;
}
}  // namespace kelvarin::view
