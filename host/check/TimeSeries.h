// The times of the stored rows of a run, in a few numbers.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/Reading.h"
#include "host/check/FilePlaces.h"

namespace kelvarin::check {
// Intervals are in nanoseconds.
struct IntervalStatistics {
    std::uint64_t Count = 0;
    std::int64_t Shortest = 0, Longest = 0;
    std::int64_t Median = 0;
    std::int64_t Low = 0, High = 0;  // 98 % of the intervals lie between them
    bool IsExact = true;             // else all but Shortest and Longest are known to 1/64
    bool IsSteady = false;           // nine of ten intervals lie within a tenth of the median
    std::int64_t GapAbove = 0;       // a longer interval is a gap: 1.5 medians, or 10 unless IsSteady
    std::uint64_t Gaps = 0;
};

// Counts intervals exactly while there are at most 4096 different ones. Beyond that an interval is known to
// 1/64 of its size, so that memory is bounded whatever the jitter.
class IntervalCounts {
  public:
    IntervalCounts() = default;
    IntervalCounts(const IntervalCounts& other)
        : Counts(other.Counts),
          IsExact(other.IsExact),
          Total(other.Total),
          Least(other.Least),
          Most(other.Most) {}  // without a place in the other's counts
    IntervalCounts& operator=(const IntervalCounts&) = delete;

    // `interval` is above 0.
    void Add(std::int64_t interval);

    IntervalStatistics Statistics() const;

  private:
    std::unordered_map<std::int64_t, std::uint64_t> Counts;  // by interval, exact or rounded
    bool IsExact = true;
    std::uint64_t Total = 0;
    std::int64_t Least = 0, Most = 0;
    std::int64_t LastInterval = 0;  // most files repeat one interval
    std::uint64_t* LastCount = nullptr;
};

// The format with day and month exchanged; empty if it doesn't have both. `letters` are those of
// ITimeReader::FormatLetters, here and below.
std::u16string WithDayAndMonthExchanged(const std::u16string& format, const std::u16string& letters);

// True if a reader may take the day for the month: both are in the format, and the year, if it has one, is
// not before both of them, as standards have it.
bool IsDayMonthInDoubt(const std::u16string& format, const std::u16string& letters);

// Whether the dates of a run prove which of their numbers is the day and which the month.
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

// The step from one stored row to the next.
struct TimeStep {
    std::int64_t From = 0, To = 0;  // nanoseconds on the scale of CTimeStamp
    std::uint64_t Line = 0;         // of the later row
    std::int64_t Length() const { return To - From; }
};

// Rows that share a time, of which the module stores the first.
struct SharedTimes {
    std::uint64_t RowsEach = 0;  // the median; 0 if there are too few such rows to tell
    bool IsEven = false;         // nine of ten times have about so many
    std::int64_t Finest = 0;     // the shortest difference that the times can express, in nanoseconds
};

// Takes the times of the stored rows, which rise, and is told of the dropped ones between them. Times are
// nanoseconds on the scale of CTimeStamp, lines those of the file. Memory is bounded.
class TimeSeries {
  public:
    // `letters` are those of ITimeReader::FormatLetters.
    TimeSeries(const Reading& format, const std::u16string& letters);
    TimeSeries(const TimeSeries&) = default;
    TimeSeries& operator=(const TimeSeries&) = delete;

    void Add(std::int64_t time, std::uint64_t line);

    // A row was dropped.
    void AddDropped() { ++DroppedSince; }

    IntervalStatistics Intervals() const { return Counts.Statistics(); }
    SharedTimes GetSharedTimes() const;

    // What the times have come to; only the series changes it.
    std::uint64_t Count = 0;
    std::int64_t First = 0, Last = 0;  // meaningless without a row, as their lines
    std::uint64_t FirstLine = 0, LastLine = 0;
    std::vector<TimeStep> LongestSteps;  // the longest first; at most 8
    DayMonthOrder Dates;

    // The times of day that fell and so were taken for the next day's, and those among them that are far from
    // midnight: more than an hour and more than two intervals. Only under a fixed date.
    std::uint64_t RollOvers = 0;
    FilePlaces DoubtfulRollOvers;

  private:
    void TakeStep(const TimeStep& step);
    void LookForRollOver(const TimeStep& step);

    const bool WatchesDates, WatchesRollOvers;
    const std::int64_t Resolution;

    std::int64_t LastStep = 0;
    IntervalCounts Counts;

    std::uint64_t DroppedSince = 0;                   // the last stored row
    std::array<std::uint64_t, 1024> SizesOfGroups{};  // by the number of dropped rows after a stored one
    std::int64_t Finest = 1'000'000'000;              // a power of ten that divides all times

    std::int64_t FirstMidnight = 0;
};
}  // namespace kelvarin::check
