#include "timestamp/TimestampParts.h"

#include <cmath>

#include "contract/TimeStamp.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Numbers.h"
#include "timestamp/TimestampFormat.h"

namespace {

constexpr double HourUnit = 3.6e12;  // nanoseconds
constexpr double MinuteUnit = 6e10;
constexpr double SecondUnit = 1e9;
constexpr double MillisecondUnit = 1e6;
constexpr double MicrosecondUnit = 1e3;

}  // namespace

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

std::int64_t TimestampParts::DatePart() const {
    std::int32_t year = Year;
    if (year >= 90 && year <= 99) {
        year += 1900;
    } else if (year >= 0 && year <= 89) {
        year += 2000;
    }
    if (year < 1970 || year > 2115 || Month < 1 || Month > 12 || Day < 1 || Day > 31) return NoTimestamp;
    try {
        return CTimeStamp(year, Month, Day, 0, 0, 0, 0).toTIME();
    } catch (COleException* error) {
        error->Delete();
        return NoTimestamp;
    }
}
