// The lowest and the highest of any part of a signal's values, without looking at all of them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

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

// The peaks of every 512 samples, of every 16 of these and so on: 17 bytes for 512 samples and a fifteenth of
// that above. Any number of threads may ask.
class PeakPyramid {
  public:
    // Reads all samples once, on `threads` threads. The reader outlives the pyramid. Ends early, with peaks
    // that may be too small, once `cancel` is true; it may be null.
    explicit PeakPyramid(const store::ValueReader& reader, std::size_t threads = 1,
                         const std::atomic<bool>* cancel = nullptr);

    // Of the samples from number `first` up to but not including `end`, exactly.
    Peaks Between(std::uint64_t first, std::uint64_t end) const;

    std::size_t Bytes() const;

  private:
    static constexpr std::uint64_t BucketSize = 512;
    static constexpr std::uint64_t Fan = 16;

    struct Level {
        std::vector<double> Bounds;        // the lowest and the highest of each bucket
        std::vector<std::uint8_t> Others;  // what else is in the bucket, bits
    };

    static Peaks BucketOf(const Level& level, std::uint64_t bucket);
    static void SetBucket(Level& level, std::uint64_t bucket, const Peaks& peaks);

    void FillLowest(std::uint64_t firstBucket, std::uint64_t endBucket, const std::atomic<bool>* cancel);
    Peaks PeaksOfRows(std::uint64_t first, std::uint64_t end) const;
    Peaks PeaksOfBuckets(std::size_t level, std::uint64_t first, std::uint64_t end) const;

    const store::ValueReader& Reader;
    std::vector<Level> Levels;  // the finest first
};
}  // namespace kelvarin::view
