#include "host/check/IntervalCounts.h"

#include <algorithm>
#include <bit>

namespace kelvarin::check {

namespace {

constexpr std::size_t MostExact = 4096;

// A bucket is an octave's 64th part; small intervals have a bucket each.
constexpr int KeptBits = 7;
constexpr std::size_t PerOctave = std::size_t{1} << (KeptBits - 1);
constexpr std::size_t BucketCount = (63 - KeptBits + 2) * PerOctave;

std::size_t BucketOf(std::int64_t interval) {
    const auto value = static_cast<std::uint64_t>(interval);
    const int shift = std::max(static_cast<int>(std::bit_width(value)) - KeptBits, 0);
    return static_cast<std::size_t>(shift) * PerOctave + static_cast<std::size_t>(value >> shift);
}

// The least interval of a bucket.
std::int64_t StartOf(std::size_t bucket) {
    if (bucket < 2 * PerOctave) return static_cast<std::int64_t>(bucket);
    const std::size_t shift = bucket / PerOctave - 1;
    return static_cast<std::int64_t>((bucket % PerOctave + PerOctave) << shift);
}

}  // namespace

void IntervalCounts::Add(std::int64_t interval) {
    Least = Total == 0 ? interval : std::min(Least, interval);
    Most = std::max(Most, interval);
    ++Total;
    if (interval == LastInterval && LastCount != nullptr) {
        ++*LastCount;
        return;
    }
    LastInterval = interval;
    if (IsExact()) {
        LastCount = &Exact[interval];
        ++*LastCount;
        if (Exact.size() > MostExact) TurnToBuckets();
    } else {
        LastCount = &Buckets[BucketOf(interval)];
        ++*LastCount;
    }
}

void IntervalCounts::TurnToBuckets() {
    Buckets.resize(BucketCount);
    for (const auto& [interval, count] : Exact) Buckets[BucketOf(interval)] += count;
    Exact.clear();
    LastCount = nullptr;
}

std::vector<std::pair<std::int64_t, std::uint64_t>> IntervalCounts::Sorted() const {
    std::vector<std::pair<std::int64_t, std::uint64_t>> counts(Exact.begin(), Exact.end());
    std::sort(counts.begin(), counts.end());
    for (std::size_t i = 0; i < Buckets.size(); ++i) {
        if (Buckets[i] != 0) counts.emplace_back(std::clamp(StartOf(i), Least, Most), Buckets[i]);
    }
    return counts;
}

std::int64_t IntervalCounts::Quantile(double share) const {
    const auto wanted = static_cast<std::uint64_t>(share * static_cast<double>(Total));
    std::uint64_t below = 0;
    for (const auto& [interval, count] : Sorted()) {
        below += count;
        if (below > wanted) return interval;
    }
    return Most;
}

std::uint64_t IntervalCounts::CountBetween(double lowest, double highest) const {
    std::uint64_t found = 0;
    for (const auto& [interval, count] : Sorted()) {
        const auto value = static_cast<double>(interval);
        if (value >= lowest && value <= highest) found += count;
    }
    return found;
}

}  // namespace kelvarin::check
