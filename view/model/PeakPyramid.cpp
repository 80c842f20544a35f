#include "view/model/PeakPyramid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <thread>
#include <vector>

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

PeakPyramid::PeakPyramid(const store::ValueReader& reader, std::size_t threads, const PeakPyramid* before)
    : Reader(reader),
      Rows(reader.Count()),
      Levels(before == nullptr ? std::make_shared<SharedLevels>() : before->Levels) {
    for (std::size_t level = 0; level < MostLevels && Buckets(level) != 0; ++level) {
        if ((*Levels)[level] == nullptr) (*Levels)[level] = std::make_unique<Level>();
        (*Levels)[level]->Bounds.MakeRoom(static_cast<std::size_t>(2 * Buckets(level)));
        (*Levels)[level]->Others.MakeRoom(static_cast<std::size_t>(Buckets(level)));
    }
    const std::uint64_t first = before == nullptr ? 0 : before->Buckets(0);
    const std::uint64_t added = Buckets(0) - first;
    const std::uint64_t workers = std::clamp<std::uint64_t>(threads, 1, added / 1024 + 1);
    std::vector<std::jthread> team;
    for (std::uint64_t i = 1; i < workers; ++i) {
        team.emplace_back([this, i, first, added, workers] {
            FillLowest(first + added * i / workers, first + added * (i + 1) / workers);
        });
    }
    FillLowest(first, first + added / workers);
    team.clear();
    for (std::size_t level = 1; level < MostLevels; ++level)
        FillLevel(level, before == nullptr ? 0 : before->Buckets(level));
}

std::uint64_t PeakPyramid::Buckets(std::size_t level) const {
    std::uint64_t buckets = Rows / BucketSize;
    for (std::size_t i = 0; i < level; ++i) buckets /= Fan;
    return buckets;
}

void PeakPyramid::FillLowest(std::uint64_t firstBucket, std::uint64_t endBucket) {
    for (std::uint64_t bucket = firstBucket; bucket < endBucket; ++bucket)
        SetBucket(0, bucket, PeaksOfRows(bucket * BucketSize, (bucket + 1) * BucketSize));
}

void PeakPyramid::FillLevel(std::size_t level, std::uint64_t firstBucket) {
    for (std::uint64_t bucket = firstBucket; bucket < Buckets(level); ++bucket) {
        Peaks peaks;
        for (std::uint64_t i = bucket * Fan; i < (bucket + 1) * Fan; ++i)
            peaks.Include(BucketOf(level - 1, i));
        SetBucket(level, bucket, peaks);
    }
}

Peaks PeakPyramid::BucketOf(std::size_t level, std::uint64_t bucket) const {
    const Level& from = *(*Levels)[level];
    const auto at = static_cast<std::size_t>(bucket);
    const std::uint8_t others = from.Others[at];
    return {from.Bounds[2 * at], from.Bounds[2 * at + 1], (others & GapBit) != 0, (others & InfinityBit) != 0,
            (others & MinusInfinityBit) != 0};
}

void PeakPyramid::SetBucket(std::size_t level, std::uint64_t bucket, const Peaks& peaks) {
    Level& to = *(*Levels)[level];
    const auto at = static_cast<std::size_t>(bucket);
    to.Bounds[2 * at] = peaks.Lowest;
    to.Bounds[2 * at + 1] = peaks.Highest;
    to.Others[at] =
        static_cast<std::uint8_t>((peaks.HasGap ? GapBit : 0) | (peaks.HasInfinity ? InfinityBit : 0) |
                                  (peaks.HasMinusInfinity ? MinusInfinityBit : 0));
}

Peaks PeakPyramid::PeaksOfRows(std::uint64_t first, std::uint64_t end) const {
    std::array<double, BucketSize> values;
    const std::span<double> read(values.data(), static_cast<std::size_t>(end - first));
    Reader.Read(first, read);
    return PeaksOf(read);
}

// What isn't aligned at both ends is left over for the level below; a level above has all that is.
Peaks PeakPyramid::PeaksOfBuckets(std::size_t level, std::uint64_t first, std::uint64_t end) const {
    Peaks peaks;
    for (; first < end && first % Fan != 0; ++first) peaks.Include(BucketOf(level, first));
    for (; first < end && end % Fan != 0; --end) peaks.Include(BucketOf(level, end - 1));
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
    std::size_t bytes = sizeof(SharedLevels);
    for (std::size_t level = 0; level < MostLevels && Buckets(level) != 0; ++level)
        bytes += sizeof(Level) + static_cast<std::size_t>(Buckets(level)) * (2 * sizeof(double) + 1);
    return bytes;
}
}  // namespace kelvarin::view
