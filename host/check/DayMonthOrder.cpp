#include "host/check/DayMonthOrder.h"

#include <algorithm>
#include <limits>

#include "contract/TimeStamp.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::int64_t Hour = 3'600'000'000'000;
constexpr int MonthsOfYear = 12;
constexpr std::size_t YearLetter = 0, MonthLetter = 1, DayLetter = 2, LetterCount = 6;

struct CalendarDate {
    int Year, Month, Day;
};

CalendarDate DateOf(std::int64_t time) {
    const std::string text = Utf16ToUtf8(CTimeStamp(time).ToText());  // YYYY-MM-DD ...
    return {std::stoi(text), std::stoi(text.substr(5)), std::stoi(text.substr(8))};
}

}  // namespace

std::u16string WithDayAndMonthExchanged(const std::u16string& format, const std::u16string& letters) {
    if (letters.size() != LetterCount) return {};
    const char16_t day = letters[DayLetter];
    const char16_t month = letters[MonthLetter];
    if (format.find(day) == format.npos || format.find(month) == format.npos) return {};
    std::u16string other = format;
    for (char16_t& c : other) c = c == day ? month : c == month ? day : c;
    return other;
}

bool IsDayMonthInDoubt(const std::u16string& format, const std::u16string& letters) {
    if (WithDayAndMonthExchanged(format, letters).empty()) return false;
    return format.find(letters[YearLetter]) >
           std::min(format.find(letters[MonthLetter]), format.find(letters[DayLetter]));
}

void DayMonthOrder::AddOtherDay(std::int64_t time, std::int64_t step, std::uint64_t line) {
    // A local day has 23 hours at least; after them every row is looked at.
    const std::int64_t midnight = CTimeStamp(time).DateToTIME();
    const bool isSameDate = Dates != 0 && midnight == DayBegin;
    DayBegin = midnight;
    CheckAgain = midnight + 23 * Hour;
    if (isSameDate) return;
    const CalendarDate date = DateOf(time);
    if (date.Day > MonthsOfYear) {
        Decide(DayMonthState::DayAbove12, line);
        return;
    }
    AnyDiffers |= date.Day != date.Month;
    const std::int64_t exchanged = CTimeStamp(date.Year, date.Day, date.Month, 0, 0, 0, 0).toTIME();
    const std::int64_t exchangedStep = step - (midnight - exchanged) + LastShift;
    if (Dates != 0) {
        const bool runsOn = step <= 2 * LastStep && step < 12 * Hour;
        if (exchangedStep <= 0) {
            Decide(DayMonthState::WouldFall, line);
        } else if (runsOn && exchangedStep > 2 * LastStep) {
            Decide(DayMonthState::RunsOn, line);
        }
        Steps += step / Hour;
        ExchangedSteps += exchangedStep / Hour;
    }
    LastShift = midnight - exchanged;
    Dates = Dates == 0 ? 1 : 2;
}

void DayMonthOrder::Decide(DayMonthState state, std::uint64_t line) {
    if (Decided != DayMonthState::NotChecked) return;
    Decided = state;
    DecidingLine = line;
    DayBegin = std::numeric_limits<std::int64_t>::min();
    CheckAgain = std::numeric_limits<std::int64_t>::max();
}

DayMonthState DayMonthOrder::State() const {
    if (Decided != DayMonthState::NotChecked || Dates == 0) return Decided;
    if (!AnyDiffers) return DayMonthState::Same;
    if (Dates == 1) return DayMonthState::OneDate;
    return ExchangedSteps < Steps / 4 ? DayMonthState::OtherIsCloser : DayMonthState::Ambiguous;
}

}  // namespace kelvarin::check
