// Whether the dates of a run prove which of their numbers is the day and which the month.
#pragma once

#include <cstdint>
#include <string>

namespace kelvarin::check {

// The format with day and month exchanged; empty if it doesn't have both. `letters` are those of
// ITimeReader::FormatLetters, here and below.
std::u16string WithDayAndMonthExchanged(const std::u16string& format, const std::u16string& letters);

// True if a reader may take the day for the month: both are in the format, and the year, if it has one, is
// not before both of them, as standards have it.
bool IsDayMonthInDoubt(const std::u16string& format, const std::u16string& letters);

enum class DayMonthState {
    NotChecked,     // there is no doubt, or no date
    DayAbove12,     // a number that can be no month was read as a day
    WouldFall,      // read the other way, the dates would fall
    RunsOn,         // the rows go on over midnight at their interval; read the other way they would leap
    OneDate,        // there is one date only
    Same,           // both ways read the same dates
    Ambiguous,      // the dates rise either way
    OtherIsCloser,  // the dates leap, and read the other way they lie closer
};

// Takes the rising times of the stored rows. Costs two comparisons for most rows.
class DayMonthOrder {
  public:
    // The row of a time, with the step that led to it (0 for the first). Nanoseconds.
    void Add(std::int64_t time, std::int64_t step, std::uint64_t line) {
        if (time < DayBegin || time >= CheckAgain) AddOtherDay(time, step, line);
        LastStep = step;
    }

    DayMonthState State() const;

    // The line that decided, if one did; else 0.
    std::uint64_t Line() const { return DecidingLine; }

  private:
    void AddOtherDay(std::int64_t time, std::int64_t step, std::uint64_t line);
    void Decide(DayMonthState state, std::uint64_t line);

    std::int64_t DayBegin = 0, CheckAgain = 0;  // times between them are of the current date
    std::int64_t LastStep = 0;
    std::int64_t LastShift = 0;                  // of the current midnight against that of the other way
    int Dates = 0;                               // different ones so far, counted to 2
    bool AnyDiffers = false;                     // a date with different day and month
    std::int64_t Steps = 0, ExchangedSteps = 0;  // hours, summed over the changes of the date
    DayMonthState Decided = DayMonthState::NotChecked;
    std::uint64_t DecidingLine = 0;
};

}  // namespace kelvarin::check
