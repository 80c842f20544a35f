#include "view/model/PeakPyramid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <thread>

#include "host/store/Sparkline.h"

namespace kelvarin::view {
namespace {
constexpr std::uint8_t GapBit = 1;
constexpr std::uint8_t InfinityBit = 2;
constexpr std::uint8_t MinusInfinityBit = 4;

Peaks PeaksOneByOne(std::span<const double> values) {
    Peaks peaks;
    for (const double value : values) {
        if (std::isnan(value)) {
            peaks.HasGap = true;
        } else if (std::isinf(value)) {
            (value > 0 ? peaks.HasInfinity : peaks.HasMinusInfinity) = true;
        } else {
            peaks.Lowest = std::min(peaks.Lowest, value);
            peaks.Highest = std::max(peaks.Highest, value);
        }
    }
    return peaks;
}
}  // namespace

void Peaks::Include(const Peaks& other) {
    Lowest = std::min(Lowest, other.Lowest);
    Highest = std::max(Highest, other.Highest);
    HasGap |= other.HasGap;
    HasInfinity |= other.HasInfinity;
    HasMinusInfinity |= other.HasMinusInfinity;
}

Peaks PeaksOf(std::span<const double> values) {
    // Four sums of what is 0 for a finite value: the only other results are of values that are none.
    std::array<double, 4> sums{};
    const std::size_t whole = values.size() / sums.size() * sums.size();
    for (std::size_t i = 0; i < whole; i += sums.size()) {
        for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += values[i + k] * 0;
    }
    for (const double value : values.subspan(whole)) sums[0] += value * 0;
    if (!std::isfinite(sums[0] + sums[1] + sums[2] + sums[3])) return PeaksOneByOne(values);
    const store::NumberRange range = store::RangeOf(values);
    return {range.Lowest, range.Highest};
}

PeakPyramid::PeakPyramid(const store::ValueReader& reader, std::size_t threads,
                         const std::atomic<bool>* cancel)
    : Reader(reader) {
    std::uint64_t buckets = (reader.Count() + BucketSize - 1) / BucketSize;
    for (;;) {
        const auto size = static_cast<std::size_t>(buckets);
        Levels.push_back({std::vector<double>(2 * size), std::vector<std::uint8_t>(size)});
        if (buckets <= 1) break;
        buckets = (buckets + Fan - 1) / Fan;
    }
    const std::uint64_t lowest = Levels[0].Others.size();
    const std::uint64_t workers = std::clamp<std::uint64_t>(threads, 1, lowest / 1024 + 1);
    std::vector<std::jthread> team;
    for (std::uint64_t i = 1; i < workers; ++i) {
        team.emplace_back([this, i, lowest, workers, cancel] {
            FillLowest(lowest * i / workers, lowest * (i + 1) / workers, cancel);
        });
    }
    FillLowest(0, lowest / workers, cancel);
    team.clear();
    for (std::size_t level = 1; level < Levels.size(); ++level) {
        const std::uint64_t below = Levels[level - 1].Others.size();
        for (std::uint64_t bucket = 0; bucket < Levels[level].Others.size(); ++bucket) {
            Peaks peaks;
            for (std::uint64_t i = bucket * Fan; i < std::min(below, (bucket + 1) * Fan); ++i)
                peaks.Include(BucketOf(Levels[level - 1], i));
            SetBucket(Levels[level], bucket, peaks);
        }
    }
}

void PeakPyramid::FillLowest(std::uint64_t firstBucket, std::uint64_t endBucket,
                             const std::atomic<bool>* cancel) {
    for (std::uint64_t bucket = firstBucket; bucket < endBucket; ++bucket) {
        if (cancel != nullptr && *cancel) return;
        const std::uint64_t first = bucket * BucketSize;
        SetBucket(Levels[0], bucket, PeaksOfRows(first, std::min(Reader.Count(), first + BucketSize)));
    }
}

Peaks PeakPyramid::BucketOf(const Level& level, std::uint64_t bucket) {
    const auto at = static_cast<std::size_t>(bucket);
    const std::uint8_t others = level.Others[at];
    return {level.Bounds[2 * at], level.Bounds[2 * at + 1], (others & GapBit) != 0,
            (others & InfinityBit) != 0, (others & MinusInfinityBit) != 0};
}

void PeakPyramid::SetBucket(Level& level, std::uint64_t bucket, const Peaks& peaks) {
    const auto at = static_cast<std::size_t>(bucket);
    level.Bounds[2 * at] = peaks.Lowest;
    level.Bounds[2 * at + 1] = peaks.Highest;
    level.Others[at] =
        static_cast<std::uint8_t>((peaks.HasGap ? GapBit : 0) | (peaks.HasInfinity ? InfinityBit : 0) |
                                  (peaks.HasMinusInfinity ? MinusInfinityBit : 0));
}

Peaks PeakPyramid::PeaksOfRows(std::uint64_t first, std::uint64_t end) const {
    std::array<double, BucketSize> values;
    const std::span<double> read(values.data(), static_cast<std::size_t>(end - first));
    Reader.Read(first, read);
    return PeaksOf(read);
}

Peaks PeakPyramid::PeaksOfBuckets(std::size_t level, std::uint64_t first, std::uint64_t end) const {
    Peaks peaks;
    for (; first < end && (first % Fan != 0 || level + 1 == Levels.size()); ++first)
        peaks.Include(BucketOf(Levels[level], first));
    for (; first < end && end % Fan != 0; --end) peaks.Include(BucketOf(Levels[level], end - 1));
    if (first < end) peaks.Include(PeaksOfBuckets(level + 1, first / Fan, end / Fan));
    return peaks;
}

Peaks PeakPyramid::Between(std::uint64_t first, std::uint64_t end) const {
    if (first >= end) return {};
    const std::uint64_t firstBucket = (first + BucketSize - 1) / BucketSize;
    const std::uint64_t endBucket = end / BucketSize;
    if (firstBucket > endBucket) return PeaksOfRows(first, end);
    Peaks peaks;
    if (first < firstBucket * BucketSize) peaks.Include(PeaksOfRows(first, firstBucket * BucketSize));
    if (endBucket * BucketSize < end) peaks.Include(PeaksOfRows(endBucket * BucketSize, end));
    peaks.Include(PeaksOfBuckets(0, firstBucket, endBucket));
    return peaks;
}

std::size_t PeakPyramid::Bytes() const {
    std::size_t bytes = 0;
    for (const Level& level : Levels)
        bytes += level.Bounds.capacity() * sizeof(double) + level.Others.capacity();
    return bytes;
}
}  // namespace kelvarin::view
