#include "contract/TimeStamp.h"

#include <cstdio>
#include <initializer_list>
#include <string_view>

#include "platform/framework/Exceptions.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace {

constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;

// Seconds of a time, rounded toward the past, so that a time of day is never negative.
std::int64_t FloorSeconds(std::int64_t nanoseconds) {
    const std::int64_t seconds = nanoseconds / NanosecondsPerSecond;
    return nanoseconds % NanosecondsPerSecond < 0 ? seconds - 1 : seconds;
}

int DaysOfMonth(int year, int month) {
    constexpr int Days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : Days[month - 1];
}

bool Exists(const LocalTime& t) {
    if (t.Year < 1 || t.Year > 9999 || t.Month < 1 || t.Month > 12) return false;
    if (t.Day < 1 || t.Day > DaysOfMonth(t.Year, t.Month)) return false;
    return t.Hour >= 0 && t.Hour < 24 && t.Minute >= 0 && t.Minute < 60 && t.Second >= 0 && t.Second < 60;
}

// True on the local date of the moment 0.
bool IsEpochDate(const LocalTime& t) {
    LocalTime origin{};
    ToLocalTime(0, origin);
    return t.Year == origin.Year && t.Month == origin.Month && t.Day == origin.Day;
}

// The part of a date and time that a letter of a format stands for, or null.
int* FieldOf(char16_t letter, LocalTime& local) {
    switch (letter) {
        case u'Y':
            return &local.Year;
        case u'M':
            return &local.Month;
        case u'D':
            return &local.Day;
        case u'H':
            return &local.Hour;
        case u'm':
            return &local.Minute;
        case u's':
            return &local.Second;
        default:
            return nullptr;
    }
}

// One placeholder of a format and what stands for it.
struct Placeholder {
    std::u16string_view Name;
    std::u16string Text;
};

// The last `digits` digits of a number, with zeros in front.
std::u16string PaddedText(std::uint64_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return Utf8ToUtf16(text);
}

// The last local midnight up to a moment, both in seconds since 1970.
std::int64_t MidnightUpTo(std::int64_t seconds) {
    LocalTime local{};
    ToLocalTime(seconds, local);
    // Clocks set back just after midnight show the evening of the day before once more.
    const std::int64_t next = FromLocalTime({local.Year, local.Month, local.Day + 1, 0, 0, 0});
    return next <= seconds ? next : FromLocalTime({local.Year, local.Month, local.Day, 0, 0, 0});
}

std::u16string Filled(std::u16string text, std::initializer_list<Placeholder> placeholders) {
    for (const Placeholder& placeholder : placeholders)
        text = ReplaceAll(text, placeholder.Name, placeholder.Text);
    return text;
}

// Fills the three placeholders of a fraction of a second.
std::u16string FillFraction(const std::u16string& format, std::uint64_t nanoseconds) {
    return Filled(format, {{u"%ms", PaddedText(nanoseconds / 1'000'000 % 1000, 3)},
                           {u"%µs", PaddedText(nanoseconds / 1000 % 1000, 3)},
                           {u"%ns", PaddedText(nanoseconds % 1000, 3)}});
}

// ".5", ".000000001", or nothing for 0.
std::u16string FractionText(std::int64_t nanoseconds) {
    if (nanoseconds == 0) return {};
    std::string digits = std::to_string(NanosecondsPerSecond + nanoseconds).substr(1);
    digits.erase(digits.find_last_not_of('0') + 1);
    return Utf8ToUtf16("." + digits);
}

}  // namespace

CTimeStamp::CTimeStamp(CTime time) : Nanoseconds(WrappingMultiply(time.Seconds, NanosecondsPerSecond)) {}

CTimeStamp::CTimeStamp(int year, int month, int day, int hour, int minute, int second, int nanosecond)
    : Nanoseconds(nanosecond) {
    const LocalTime local{year, month, day, hour, minute, second};
    if (!Exists(local)) throw new COleException;
    Nanoseconds = WrappingAdd(WrappingMultiply(FromLocalTime(local), NanosecondsPerSecond), nanosecond);
}

bool CTimeStamp::fromString(const std::u16string& text, const std::u16string& format, int) {
    LocalTime local{1970, 1, 1, 0, 0, 0};
    if (text.size() != format.size()) return false;
    char16_t before = u'\0';
    for (std::size_t i = 0; i < format.size(); ++i) {
        int* const field = FieldOf(format[i], local);
        if (field == nullptr) {
            if (text[i] != format[i]) return false;
        } else {
            if (!IsDigit(text[i])) return false;
            *field = (format[i] == before ? *field * 10 : 0) + (text[i] - u'0');
        }
        before = format[i];
    }
    if (!Exists(local)) return false;
    const bool isDateAlone = format.find_first_of(u"Hms") == std::u16string::npos;
    if (isDateAlone && IsEpochDate(local)) {
        Nanoseconds = 0;
    } else {
        Nanoseconds = WrappingMultiply(FromLocalTime(local), NanosecondsPerSecond);
    }
    return true;
}

CTime CTimeStamp::GetCTime() const {
    return CTime{FloorSeconds(Nanoseconds)};
}

std::int64_t CTimeStamp::DaytimeToTIME(bool local) const {
    const std::int64_t seconds = FloorSeconds(Nanoseconds);
    std::int64_t daytime = 0;
    if (local) {
        LocalTime shown{};
        ToLocalTime(seconds, shown);
        daytime = (shown.Hour * 60 + shown.Minute) * 60 + shown.Second;
    } else {
        daytime = seconds - MidnightUpTo(seconds);
    }
    return daytime * NanosecondsPerSecond +
           WrappingSubtract(Nanoseconds, WrappingMultiply(seconds, NanosecondsPerSecond));
}

std::int64_t CTimeStamp::DateToTIME() const {
    if (Nanoseconds == 0) return 0;
    LocalTime local{};
    ToLocalTime(FloorSeconds(Nanoseconds), local);
    return WrappingMultiply(FromLocalTime({local.Year, local.Month, local.Day, 0, 0, 0}),
                            NanosecondsPerSecond);
}

std::u16string CTimeStamp::ToText() const {
    const std::int64_t seconds = FloorSeconds(Nanoseconds);
    LocalTime local{};
    ToLocalTime(seconds, local);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", local.Year, local.Month, local.Day,
                  local.Hour, local.Minute, local.Second);
    return Utf8ToUtf16(text) +
           FractionText(WrappingSubtract(Nanoseconds, WrappingMultiply(seconds, NanosecondsPerSecond)));
}

std::u16string CTimeStamp::Format(const std::u16string& format, int, bool, bool) const {
    const std::int64_t seconds = FloorSeconds(Nanoseconds);
    const auto fraction = WrappingSubtract(Nanoseconds, WrappingMultiply(seconds, NanosecondsPerSecond));
    return Filled(FillFraction(format, static_cast<std::uint64_t>(fraction)),
                  {{u"%x", LocaleDate(seconds)}, {u"%X", LocaleTime(seconds)}});
}

std::u16string CTimeStampSpan::Format(const std::u16string& format, bool) const {
    const bool negative = Nanoseconds < 0;
    const auto bits = static_cast<std::uint64_t>(Nanoseconds);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    const std::uint64_t seconds = magnitude / NanosecondsPerSecond;
    return (negative ? u"-" : u"") +
           Filled(FillFraction(format, magnitude), {{u"%h", PaddedText(seconds / 3600, 1)},
                                                    {u"%M", PaddedText(seconds / 60 % 60, 2)},
                                                    {u"%S", PaddedText(seconds % 60, 2)}});
}

CTimeStampSpan::CTimeStampSpan(const CTimeStamp& from, const CTimeStamp& to)
    : Nanoseconds(WrappingSubtract(to.toTIME(), from.toTIME())) {}

std::u16string CTimeStampSpan::ToText() const {
    const bool negative = Nanoseconds < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(Nanoseconds) : static_cast<std::uint64_t>(Nanoseconds);
    const std::uint64_t seconds = magnitude / NanosecondsPerSecond;
    char text[64];
    std::snprintf(text, sizeof text, "%s%02llu:%02llu:%02llu", negative ? "-" : "",
                  static_cast<unsigned long long>(seconds / 3600),
                  static_cast<unsigned long long>(seconds / 60 % 60),
                  static_cast<unsigned long long>(seconds % 60));
    return Utf8ToUtf16(text) + FractionText(static_cast<std::int64_t>(magnitude % NanosecondsPerSecond));
}
