#include "view/model/TimeBase.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/check/TimeSeries.h"

namespace kelvarin::view {
TimeBase::TimeBase(std::shared_ptr<const store::TimeAxis> axis, std::uint64_t most, const TimeBase* before)
    : Times(std::move(axis), most, before == nullptr ? nullptr : &before->Times), Gap(FindGap()) {}

// By the same rule as a check of the file, from intervals all over it.
std::int64_t TimeBase::FindGap() const {
    constexpr std::uint64_t Looks = 64;
    constexpr std::uint64_t RowsEach = 64;
    check::IntervalCounts counts;
    std::vector<std::int64_t> times;
    const std::uint64_t rows = Times.Count();
    const std::uint64_t step = std::max<std::uint64_t>(rows / Looks, RowsEach);
    for (std::uint64_t first = 0; first + 1 < rows; first += step) {
        times.resize(static_cast<std::size_t>(std::min(rows - first, RowsEach + 1)));
        Times.Read(first, times);
        for (std::size_t i = 1; i < times.size(); ++i) {
            if (times[i] > times[i - 1]) counts.Add(times[i] - times[i - 1]);
        }
    }
    const check::IntervalStatistics intervals = counts.Statistics();
    return intervals.Count == 0 ? std::numeric_limits<std::int64_t>::max() : intervals.GapAbove;
}

const std::vector<std::uint64_t>& TimeBase::RowsOfColumns(const TimeRange& range, int columns) const {
    const auto count = static_cast<std::size_t>(columns) + 1;
    if (LastRows.size() == count && LastRange == range) return LastRows;
    LastRange = range;
    LastRows.resize(count);
    const double width = range.Length() / columns;
    for (int column = 0; column < columns; ++column) {
        const auto offset = static_cast<std::int64_t>(width * column);
        LastRows[static_cast<std::size_t>(column)] = Times.RowsBefore(range.From + offset);
    }
    LastRows.back() = Times.RowsBefore(range.To);
    return LastRows;
}
}  // namespace kelvarin::view
