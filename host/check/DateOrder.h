// Whether the dates of a run prove which of their numbers is the day and which the month.
#pragma once

#include <cstdint>

namespace kelvarin::check {

enum class DateOrderState {
    Unasked,      // there is no doubt, or no date
    DayAbove12,   // a number that can be no month was read as a day
    WouldFall,    // read the other way, the dates would fall
    RunsOn,       // the rows run on over midnight; read the other way they would leap
    OneDate,      // there is one date only
    Same,         // both ways read the same dates
    Ambiguous,    // the dates rise either way
    OtherIsEven,  // read the other way, the rows run on; as they are read, they leap
};

// Watches the rising times of the stored rows. Costs two comparisons for most rows.
class DateOrder {
  public:
    // The row of a time, with the step that led to it (0 for the first).
    void Add(std::int64_t time, std::int64_t step, std::uint64_t line) {
        if (time < DayBegin || time >= CheckAgain) AddOtherDay(time, step, line);
        LastTime = time;
        LastStep = step;
    }

    DateOrderState State() const;

    // The line that decided, if one did; else 0.
    std::uint64_t Line() const { return DecidingLine; }

  private:
    void AddOtherDay(std::int64_t time, std::int64_t step, std::uint64_t line);
    void Decide(DateOrderState state, std::uint64_t line);

    std::int64_t DayBegin = 0, CheckAgain = 0;  // within them a time is of the current date
    std::int64_t LastTime = 0, LastStep = 0;
    std::int64_t LastMidnightShift = 0;          // of the current date against what it would be the other way
    int Dates = 0;                               // different ones so far, counted to 2
    bool AnyDiffers = false;                     // a date with different day and month
    std::int64_t Steps = 0, ExchangedSteps = 0;  // sums over the changes of the date
    DateOrderState Decided = DateOrderState::Unasked;
    std::uint64_t DecidingLine = 0;
};

}  // namespace kelvarin::check
