// The grammar of a format, whose letters are those of FormatLetters ("JMThms" in German):
//
//   format   = { item } [ ( "." | "," ) ] { "0" }     the tail may be missing in the value
//   item     = letters | zeros | bracket | literal
//   letters  = a run of one letter                    a decimal number into that field
//   zeros    = a run of "0"                           digits as a fraction of the last time field's unit
//   bracket  = "[" ( "h" | "s" | "ms" | "µs" | "ns" ) "]"   a number, signed; at most one in a format
//   literal  = any other character                    itself; white space matches any white space
//
// A field directly before another one takes as many digits as its run is long, any other takes all that
// follow. White space behind a literal and at both ends is skipped. One walk over both texts, no way back.
#include "timestamp/TimestampFormat.h"

#include <cmath>

#include "host/TimeStamp.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "timestamp/FormatFields.h"
#include "timestamp/FormatLetters.h"

namespace {

constexpr double HourUnit = 3.6e12;  // nanoseconds
constexpr double MinuteUnit = 6e10;
constexpr double SecondUnit = 1e9;
constexpr double MillisecondUnit = 1e6;
constexpr double MicrosecondUnit = 1e3;

const char16_t* SkipWhiteSpace(const char16_t* p) {
    while (IsWhiteSpace(*p)) ++p;
    return p;
}

// What the fields of one value have said so far.
struct TimestampParts {
    std::int32_t Year = -1, Month = -1, Day = -1;
    std::int32_t Hours = 0, Minutes = 0, Seconds = 0;
    std::int64_t SubSecond = 0;  // nanoseconds
    std::int32_t Exponent = 0;   // of ten, over the whole time part
    std::int64_t Sign = 1;
    double Unit = SecondUnit;  // what a fraction is a fraction of
    bool HadBracket = false;

    void Store(FieldKind kind, const FieldNumber& number);
    std::int64_t TimePart() const;
    std::int64_t AbsoluteTime() const;
};

void TimestampParts::Store(FieldKind kind, const FieldNumber& number) {
    const auto small = static_cast<std::int32_t>(number.Integer);
    const auto setTime = [&](std::int32_t& field, double unit) {
        field = small;
        Unit = unit;
    };
    const auto setSubSecond = [&](double unit) {
        Unit = unit;
        SubSecond = DoubleToInt64(static_cast<double>(number.Integer) * unit);
    };
    switch (kind) {
        case FieldKind::Year:
            Year = small;
            break;
        case FieldKind::Month:
            Month = small;
            break;
        case FieldKind::Day:
            Day = small;
            break;
        case FieldKind::Hours:
            setTime(Hours, HourUnit);
            break;
        case FieldKind::Minutes:
            setTime(Minutes, MinuteUnit);
            break;
        case FieldKind::Seconds:
            setTime(Seconds, SecondUnit);
            break;
        case FieldKind::Fraction:
            SubSecond = WrappingAdd(SubSecond, DoubleToInt64(number.Fraction * Unit));
            break;
        case FieldKind::Milliseconds:
            setSubSecond(MillisecondUnit);
            break;
        case FieldKind::Microseconds:
            setSubSecond(MicrosecondUnit);
            break;
        case FieldKind::Nanoseconds:
            setSubSecond(1.0);
            break;
        case FieldKind::None:
        case FieldKind::Bracket:
            break;
    }
    if (number.Negative) Sign = -1;
    if (number.HasExponent) Exponent = number.Exponent;
}

std::int64_t TimestampParts::TimePart() const {
    const std::int64_t seconds = (std::int64_t{Hours} * 60 + Minutes) * 60 + Seconds;
    const std::int64_t time =
        WrappingMultiply(WrappingAdd(WrappingMultiply(seconds, 1'000'000'000), SubSecond), Sign);
    if (Exponent == 0) return time;
    return DoubleToInt64(static_cast<double>(time) * std::pow(10.0, Exponent));
}

std::int64_t TimestampParts::AbsoluteTime() const {
    std::int32_t year = Year;
    if (year >= 90 && year <= 99) {
        year += 1900;
    } else if (year >= 0 && year <= 89) {
        year += 2000;
    }
    if (year < 1970 || year > 2115 || Month < 1 || Month > 12 || Day < 1 || Day > 31) return NoTimestamp;
    try {
        return WrappingAdd(CTimeStamp(year, Month, Day, 0, 0, 0, 0).toTIME(), TimePart());
    } catch (COleException* error) {
        error->Delete();
        return NoTimestamp;
    }
}

// Walks format and value to the end of either. False for a mismatch; both then stand anywhere.
bool MatchItems(const char16_t*& format, const char16_t*& value, TimestampParts& parts) {
    const FieldAlphabet& alphabet = GetFieldAlphabet();
    while (*format != u'\0' && *value != u'\0') {
        if (alphabet[*format] == FieldKind::None) {
            if (*format != *value && !(IsWhiteSpace(*format) && IsWhiteSpace(*value))) return false;
            format = SkipWhiteSpace(format + 1);
            value = SkipWhiteSpace(value + 1);
            continue;
        }
        FormatField field;
        format = ReadFormatField(format, alphabet, field);
        if (format == nullptr || (field.IsBracket && parts.HadBracket)) return false;
        parts.HadBracket |= field.IsBracket;
        FieldNumber number;
        value = ReadFieldNumber(value, field, number);
        if (value == nullptr) return false;
        parts.Store(field.Kind, number);
    }
    return true;
}

}  // namespace

std::int64_t ParseTimestamp(const char16_t* format, const char16_t* value, bool hasDate) {
    if (format == nullptr || value == nullptr) return NoTimestamp;
    format = SkipWhiteSpace(format);
    value = SkipWhiteSpace(value);
    TimestampParts parts;
    if (!MatchItems(format, value, parts)) return NoTimestamp;

    if (*format == u'.' || *format == u',') ++format;
    while (*format == u'0') ++format;
    if (*SkipWhiteSpace(format) != u'\0' || *SkipWhiteSpace(value) != u'\0') return NoTimestamp;
    return hasDate ? parts.AbsoluteTime() : parts.TimePart();
}
