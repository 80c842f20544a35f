#include "host/check/TimeSeries.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "contract/TimeStamp.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {
namespace {
constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Hour = 3600 * Second;
constexpr std::int64_t Day = 24 * Hour;
constexpr std::size_t MostSteps = 8;
constexpr std::uint64_t FewestGroups = 3;  // that show a rule

bool IsLonger(const TimeStep& a, const TimeStep& b) {
    return a.Length() != b.Length() ? a.Length() > b.Length() : a.Line < b.Line;
}

// The shortest difference that the fields of a format can express, in nanoseconds, without its fraction.
std::int64_t ResolutionOf(const std::u16string& format) {
    constexpr std::pair<std::u16string_view, std::int64_t> Units[] = {
        {u"[ns]", 1}, {u"[µs]", 1'000}, {u"[ms]", 1'000'000}, {u"s", Second}, {u"m", Hour / 60}, {u"h", Hour},
    };
    for (const auto& [field, unit] : Units) {
        if (format.find(field) != format.npos) return unit;
    }
    return Day;
}

constexpr std::size_t MostExact = 4096;
constexpr int KeptBits = 7;  // of a rounded interval: 64 values from one power of two to the next

using SortedCounts = std::map<std::int64_t, std::uint64_t>;

std::int64_t Rounded(std::int64_t interval) {
    const auto bits = static_cast<int>(std::bit_width(static_cast<std::uint64_t>(interval)));
    const int shift = std::max(bits - KeptBits, 0);
    return interval >> shift << shift;
}

// The interval below which the share (0 to 1) of all lies.
std::int64_t Quantile(const SortedCounts& counts, std::uint64_t total, double share) {
    const auto wanted = static_cast<std::uint64_t>(share * static_cast<double>(total));
    std::uint64_t below = 0;
    for (const auto& [interval, count] : counts) {
        below += count;
        if (below > wanted) return interval;
    }
    return counts.rbegin()->first;
}

std::uint64_t CountBetween(const SortedCounts& counts, double lowest, double highest) {
    std::uint64_t found = 0;
    for (const auto& [interval, count] : counts) {
        const auto value = static_cast<double>(interval);
        if (value >= lowest && value <= highest) found += count;
    }
    return found;
}

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

void IntervalCounts::Add(std::int64_t interval) {
    Least = Total == 0 ? interval : std::min(Least, interval);
    Most = std::max(Most, interval);
    ++Total;
    if (interval != LastInterval || LastCount == nullptr) {
        LastInterval = interval;
        LastCount = &Counts[IsExact ? interval : Rounded(interval)];
    }
    ++*LastCount;
    if (!IsExact || Counts.size() <= MostExact) return;
    std::unordered_map<std::int64_t, std::uint64_t> rounded;
    for (const auto& [exact, count] : Counts) rounded[Rounded(exact)] += count;
    Counts = std::move(rounded);
    IsExact = false;
    LastCount = nullptr;
}

IntervalStatistics IntervalCounts::Statistics() const {
    if (Total == 0) return {};
    SortedCounts counts;
    for (const auto& [interval, count] : Counts) counts[std::max(interval, Least)] += count;
    IntervalStatistics all{Total, Least, Most};
    all.Median = Quantile(counts, Total, 0.5);
    all.Low = Quantile(counts, Total, 0.01);
    all.High = Quantile(counts, Total, 0.99);
    all.IsExact = IsExact;
    const auto median = static_cast<double>(all.Median);
    all.IsSteady = CountBetween(counts, 0.9 * median, 1.1 * median) * 10 >= Total * 9;
    const double gapAbove = (all.IsSteady ? 1.5 : 10) * median;
    all.GapAbove = gapAbove < 0x1p63 ? static_cast<std::int64_t>(gapAbove) : INT64_MAX;
    all.Gaps = Total - CountBetween(counts, 0, gapAbove);
    return all;
}

// A format in square brackets counts on over midnight, and an interval has no clock at all.
TimeSeries::TimeSeries(const Reading& format, const std::u16string& letters)
    : WatchesDates(format.DateSetting == DateFromColumn && format.TimeSetting == TimeFromColumn &&
                   !format.IsAdjusted && IsDayMonthInDoubt(format.TimestampFormat, letters)),
      WatchesRollOvers(format.DateSetting == DateFixed && format.TimeSetting == TimeFromColumn &&
                       format.TimestampFormat.find(u'[') == std::u16string::npos),
      Resolution(ResolutionOf(format.TimestampFormat)) {
    LongestSteps.reserve(MostSteps + 1);
}

void TimeSeries::Add(std::int64_t time, std::uint64_t line) {
    if (Count == 0) {
        First = time;
        FirstLine = line;
        FirstMidnight = CTimeStamp(time).DateToTIME();
        if (WatchesDates) Dates.Add(time, 0, line);
    } else {
        TakeStep({Last, time, line});
    }
    while (time % Finest != 0) Finest /= 10;
    ++Count;
    Last = time;
    LastLine = line;
    DroppedSince = 0;
}

void TimeSeries::TakeStep(const TimeStep& step) {
    Counts.Add(step.Length());
    if (WatchesDates) Dates.Add(step.To, step.Length(), step.Line);
    if (WatchesRollOvers) LookForRollOver(step);
    if (LongestSteps.size() < MostSteps || step.Length() > LongestSteps.back().Length()) {
        LongestSteps.insert(std::upper_bound(LongestSteps.begin(), LongestSteps.end(), step, IsLonger), step);
        if (LongestSteps.size() > MostSteps) LongestSteps.pop_back();
    }
    // The file may begin and end in the middle of a group.
    if (LastStep != 0) ++SizesOfGroups[std::min<std::uint64_t>(DroppedSince, SizesOfGroups.size() - 1)];
    LastStep = step.Length();
}

void TimeSeries::LookForRollOver(const TimeStep& step) {
    const std::int64_t from = step.From - FirstMidnight;
    const std::int64_t to = step.To - FirstMidnight;
    if (to / Day == from / Day) return;
    ++RollOvers;
    const std::int64_t near = std::max(Hour, 2 * LastStep);
    if (Day - from % Day <= near && to % Day <= near) return;
    DoubtfulRollOvers.Add({step.Line, 0, {}});
}

SharedTimes TimeSeries::GetSharedTimes() const {
    SharedTimes shared;
    shared.Finest = Finest < Second ? Finest : std::max(Resolution, Finest);
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
