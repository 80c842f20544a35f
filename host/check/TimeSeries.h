// The time axis of a run, in a few numbers.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "host/check/DateOrder.h"
#include "host/check/FilePlaces.h"
#include "host/check/IntervalCounts.h"
#include "host/check/TimeSource.h"

namespace kelvarin::check {

// The way from one stored row to the next.
struct TimeStep {
    std::int64_t From = 0, To = 0;  // nanoseconds
    std::uint64_t Line = 0;         // of the later row
    std::int64_t Length() const { return To - From; }
};

// What can be said of the intervals as a whole.
struct Rhythm {
    std::int64_t Median = 0;
    std::int64_t Low = 0, High = 0;  // 98 % of the intervals lie between them
    bool IsSteady = false;           // nine of ten intervals lie within a tenth of the median
    std::int64_t GapAbove = 0;       // an interval beyond it is a gap
    std::uint64_t Gaps = 0;
};

// Rows that share a time, of which the module stores the first.
struct SharedTimes {
    std::uint64_t RowsEach = 0;  // in the middle; 0 if there are too few such rows to tell
    bool IsEven = false;         // nine of ten times have about so many
    std::int64_t Finest = 0;     // the shortest difference that the times can tell, in nanoseconds
};

// Takes the times of the stored rows, which rise, and is told of the dropped ones between them. Memory is
// bounded.
class TimeSeries {
  public:
    explicit TimeSeries(const TimeSource& reading);

    void Add(std::int64_t time, std::uint64_t line);

    // A row was dropped.
    void AddDropped() { ++DroppedSince; }

    std::uint64_t Count() const { return Rows; }
    std::int64_t First() const { return FirstTime; }
    std::int64_t Last() const { return LastTime; }
    std::uint64_t FirstLine() const { return LineOfFirst; }
    std::uint64_t LastLine() const { return LineOfLast; }

    const IntervalCounts& Intervals() const { return Counts; }
    Rhythm GetRhythm() const;

    // The longest steps, the longest first; at most 8.
    const std::vector<TimeStep>& LongestSteps() const { return Longest; }

    SharedTimes GetSharedTimes() const;
    const DateOrder& Dates() const { return Order; }

    // The times of day that fell and so were taken for the next day's, and those among them that stand far
    // from midnight: more than an hour and more than two intervals. Only under a fixed date.
    std::uint64_t RollOvers() const { return RollOverCount; }
    const FilePlaces& DoubtfulRollOvers() const { return Doubtful; }

  private:
    void TakeStep(const TimeStep& step);
    void KeepIfLong(const TimeStep& step);
    void LookForRollOver(const TimeStep& step);

    const bool WatchesDates, WatchesRollOvers;
    const std::int64_t Resolution;

    std::uint64_t Rows = 0;
    std::int64_t FirstTime = 0, LastTime = 0;
    std::uint64_t LineOfFirst = 0, LineOfLast = 0;
    std::int64_t LastStep = 0;
    IntervalCounts Counts;
    std::vector<TimeStep> Longest;  // the longest first
    DateOrder Order;

    std::uint64_t DroppedSince = 0;                   // the last stored row
    std::array<std::uint64_t, 1024> SizesOfGroups{};  // a stored row and the dropped ones behind it
    std::int64_t Finest = 1'000'000'000;              // a power of ten that divides all times

    std::int64_t FirstMidnight = 0;
    std::uint64_t RollOverCount = 0;
    FilePlaces Doubtful;
};

}  // namespace kelvarin::check
