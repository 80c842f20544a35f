#include "host/check/TimeSeries.h"

#include <algorithm>

#include "contract/TimeStamp.h"

namespace kelvarin::check {

namespace {

constexpr std::int64_t Hour = 3'600'000'000'000;
constexpr std::int64_t Day = 24 * Hour;
constexpr std::size_t MostSteps = 8;
constexpr std::uint64_t FewestGroups = 3;  // that show a rule

bool IsLonger(const TimeStep& a, const TimeStep& b) {
    return a.Length() != b.Length() ? a.Length() > b.Length() : a.Line < b.Line;
}

}  // namespace

// A format in square brackets counts on over midnight, and an interval has no clock at all.
TimeSeries::TimeSeries(const TimeSource& reading)
    : WatchesDates(reading.DateFrom == TimeSource::Date::FromColumn && !reading.IsInterval &&
                   !reading.IsAdjusted && !reading.HasNoDayMonthDoubt()),
      WatchesRollOvers(reading.DateFrom == TimeSource::Date::Fixed && !reading.IsInterval &&
                       reading.Format.find(u'[') == std::u16string::npos),
      Resolution(reading.Resolution()) {
    Longest.reserve(MostSteps + 1);
}

void TimeSeries::Add(std::int64_t time, std::uint64_t line) {
    if (Rows == 0) {
        FirstTime = time;
        LineOfFirst = line;
        FirstMidnight = CTimeStamp(time).DateToTIME();
        if (WatchesDates) Order.Add(time, 0, line);
    } else {
        TakeStep({LastTime, time, line});
    }
    while (time % Finest != 0) Finest /= 10;
    ++Rows;
    LastTime = time;
    LineOfLast = line;
    DroppedSince = 0;
}

void TimeSeries::TakeStep(const TimeStep& step) {
    Counts.Add(step.Length());
    if (WatchesDates) Order.Add(step.To, step.Length(), step.Line);
    if (WatchesRollOvers) LookForRollOver(step);
    if (Longest.size() < MostSteps || step.Length() > Longest.back().Length()) KeepIfLong(step);
    // The file may begin and end in the midst of a group.
    if (LastStep != 0) ++SizesOfGroups[std::min<std::uint64_t>(DroppedSince, SizesOfGroups.size() - 1)];
    LastStep = step.Length();
}

void TimeSeries::KeepIfLong(const TimeStep& step) {
    Longest.insert(std::upper_bound(Longest.begin(), Longest.end(), step, IsLonger), step);
    if (Longest.size() > MostSteps) Longest.pop_back();
}

void TimeSeries::LookForRollOver(const TimeStep& step) {
    const std::int64_t from = step.From - FirstMidnight;
    const std::int64_t to = step.To - FirstMidnight;
    if (to / Day == from / Day) return;
    ++RollOverCount;
    const std::int64_t near = std::max(Hour, 2 * LastStep);
    if (Day - from % Day <= near && to % Day <= near) return;
    Doubtful.Add({step.Line, 0, {}});
}

Rhythm TimeSeries::GetRhythm() const {
    Rhythm rhythm;
    if (Counts.Count() == 0) return rhythm;
    rhythm.Median = Counts.Quantile(0.5);
    rhythm.Low = Counts.Quantile(0.01);
    rhythm.High = Counts.Quantile(0.99);
    const auto median = static_cast<double>(rhythm.Median);
    const std::uint64_t nearMedian = Counts.CountBetween(0.9 * median, 1.1 * median);
    rhythm.IsSteady = nearMedian * 10 >= Counts.Count() * 9;
    const double gapAbove = (rhythm.IsSteady ? 1.5 : 10) * median;
    rhythm.GapAbove = static_cast<std::int64_t>(gapAbove);
    rhythm.Gaps = Counts.Count() - Counts.CountBetween(0, gapAbove);
    return rhythm;
}

SharedTimes TimeSeries::GetSharedTimes() const {
    SharedTimes shared;
    shared.Finest = Finest < 1'000'000'000 ? Finest : std::max(Resolution, Finest);
    std::uint64_t groups = 0;
    for (const std::uint64_t count : SizesOfGroups) groups += count;
    if (groups < FewestGroups) return shared;
    std::uint64_t below = 0;
    std::size_t middle = 0;
    while ((below += SizesOfGroups[middle]) * 2 <= groups) ++middle;
    if (middle == 0) return shared;
    shared.RowsEach = middle + 1;
    const std::size_t tolerance = shared.RowsEach < 5 ? 0 : std::max<std::size_t>(1, shared.RowsEach / 10);
    std::uint64_t alike = 0;
    for (std::size_t i = middle - tolerance; i <= std::min(middle + tolerance, SizesOfGroups.size() - 1); ++i)
        alike += SizesOfGroups[i];
    shared.IsEven = alike * 10 >= groups * 9;
    return shared;
}

}  // namespace kelvarin::check
