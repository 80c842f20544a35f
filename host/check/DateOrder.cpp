#include "host/check/DateOrder.h"

#include <limits>
#include <string>

#include "contract/TimeStamp.h"

namespace kelvarin::check {

namespace {

constexpr std::int64_t Hour = 3'600'000'000'000;
constexpr int MonthsOfYear = 12;

struct CalendarDate {
    int Year, Month, Day;
};

CalendarDate DateOf(std::int64_t time) {
    const std::u16string text = CTimeStamp(time).ToText();  // YYYY-MM-DD ...
    const auto number = [&](std::size_t begin, std::size_t size) {
        int value = 0;
        for (std::size_t i = begin; i < begin + size && i < text.size(); ++i)
            value = value * 10 + (text[i] - u'0');
        return value;
    };
    return {number(0, 4), number(5, 2), number(8, 2)};
}

}  // namespace

void DateOrder::AddOtherDay(std::int64_t time, std::int64_t step, std::uint64_t line) {
    // A local day has 23 hours at least; behind them every row is looked at.
    const std::int64_t midnight = CTimeStamp(time).DateToTIME();
    const bool isSameDate = Dates != 0 && midnight == DayBegin;
    DayBegin = midnight;
    CheckAgain = midnight + 23 * Hour;
    if (isSameDate) return;
    const CalendarDate date = DateOf(time);
    if (date.Day > MonthsOfYear) {
        Decide(DateOrderState::DayAbove12, line);
        return;
    }
    AnyDiffers |= date.Day != date.Month;
    const std::int64_t exchanged = CTimeStamp(date.Year, date.Day, date.Month, 0, 0, 0, 0).toTIME();
    const std::int64_t exchangedStep = step - (midnight - exchanged) + LastMidnightShift;
    if (Dates != 0) {
        const bool runsOn = step <= 2 * LastStep && step < 12 * Hour;
        if (exchangedStep <= 0) {
            Decide(DateOrderState::WouldFall, line);
        } else if (runsOn && exchangedStep > 2 * LastStep) {
            Decide(DateOrderState::RunsOn, line);
        }
        Steps += step / Hour;
        ExchangedSteps += exchangedStep / Hour;
    }
    LastMidnightShift = midnight - exchanged;
    Dates = Dates == 0 ? 1 : 2;
}

void DateOrder::Decide(DateOrderState state, std::uint64_t line) {
    if (Decided != DateOrderState::Unasked) return;
    Decided = state;
    DecidingLine = line;
    DayBegin = std::numeric_limits<std::int64_t>::min();
    CheckAgain = std::numeric_limits<std::int64_t>::max();
}

DateOrderState DateOrder::State() const {
    if (Decided != DateOrderState::Unasked || Dates == 0) return Decided;
    if (!AnyDiffers) return DateOrderState::Same;
    if (Dates == 1) return DateOrderState::OneDate;
    return ExchangedSteps < Steps / 4 ? DateOrderState::OtherIsEven : DateOrderState::Ambiguous;
}

}  // namespace kelvarin::check
