#include "host/check/TimeSeries.h"

#include <algorithm>
#include <bit>
#include <map>
#include <utility>

namespace kelvarin::check {

namespace {

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

}  // namespace

void IntervalCounts::Add(std::int64_t interval) {
    Least = Total == 0 ? interval : std::min(Least, interval);
    Most = std::max(Most, interval);
    ++Total;
    if (interval != LastInterval || LastCount == nullptr) {
        LastInterval = interval;
        LastCount = &Counts[IsExact ? interval : Rounded(interval)];
    }
    ++*LastCount;
    if (IsExact && Counts.size() > MostExact) RoundAll();
}

void IntervalCounts::RoundAll() {
    std::unordered_map<std::int64_t, std::uint64_t> rounded;
    for (const auto& [interval, count] : Counts) rounded[Rounded(interval)] += count;
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
    all.GapAbove = static_cast<std::int64_t>(gapAbove);
    all.Gaps = Total - CountBetween(counts, 0, gapAbove);
    return all;
}

}  // namespace kelvarin::check
