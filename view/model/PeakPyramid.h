// The lowest and the highest of any part of a signal's values, without looking at all of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>

#include "host/store/GrowingList.h"
#include "host/store/ValueReader.h"

namespace kelvarin::view {
// What a part of a signal has. The lowest and highest are of the finite values.
struct Peaks {
    double Lowest = std::numeric_limits<double>::infinity();
    double Highest = -std::numeric_limits<double>::infinity();
    bool HasGap = false;            // a sample without a value, or that is not a number
    bool HasInfinity = false;       // a sample above every number
    bool HasMinusInfinity = false;  // a sample below every number

    bool HasNumbers() const { return Lowest <= Highest; }

    void Include(const Peaks& other);
};

Peaks PeaksOf(std::span<const double> values);

// The peaks of every 512 samples, of every 16 of these and so on, each there once it is full: 17 bytes for
// 512 samples and a fifteenth of that above. Any number of threads may ask.
class PeakPyramid {
  public:
    // Reads the samples once, on `threads` threads. The reader outlives the pyramid. `before` is null or the
    // pyramid that was made of this signal last, with which this one shares its peaks: the samples that it
    // had aren't read again.
    explicit PeakPyramid(const store::ValueReader& reader, std::size_t threads = 1,
                         const PeakPyramid* before = nullptr);

    // Of the samples from number `first` up to but not including `end`, exactly.
    Peaks Between(std::uint64_t first, std::uint64_t end) const;

    std::size_t Bytes() const;

  private:
    static constexpr std::uint64_t BucketSize = 512;
    static constexpr std::uint64_t Fan = 16;
    static constexpr std::size_t MostLevels = 14;  // for 2 to the 64th samples

    struct Level {
        store::GrowingList<double> Bounds;        // the lowest and the highest of each bucket
        store::GrowingList<std::uint8_t> Others;  // what else is in the bucket, bits
    };
    // Those of no bucket are null. The finest first.
    using SharedLevels = std::array<std::unique_ptr<Level>, MostLevels>;

    // The full buckets of a level.
    std::uint64_t Buckets(std::size_t level) const;

    Peaks BucketOf(std::size_t level, std::uint64_t bucket) const;
    void SetBucket(std::size_t level, std::uint64_t bucket, const Peaks& peaks);

    void FillLowest(std::uint64_t firstBucket, std::uint64_t endBucket);
    void FillLevel(std::size_t level, std::uint64_t firstBucket);
    Peaks PeaksOfRows(std::uint64_t first, std::uint64_t end) const;
    Peaks PeaksOfBuckets(std::size_t level, std::uint64_t first, std::uint64_t end) const;

    const store::ValueReader& Reader;
    const std::uint64_t Rows;
    const std::shared_ptr<SharedLevels> Levels;
};
}  // namespace kelvarin::view
