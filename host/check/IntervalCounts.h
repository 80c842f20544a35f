// How often each interval between rows occurs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kelvarin::check {

// Counts intervals exactly while there are at most 4096 different ones. Beyond that an interval is known to
// 1/64 of its size (32 KiB in all), so that memory is bounded whatever the jitter.
class IntervalCounts {
  public:
    // `interval` is above 0.
    void Add(std::int64_t interval);

    std::uint64_t Count() const { return Total; }
    std::int64_t Shortest() const { return Least; }
    std::int64_t Longest() const { return Most; }
    bool IsExact() const { return Buckets.empty(); }

    // The interval below which the share (0 to 1) of all lies; 0 without any.
    std::int64_t Quantile(double share) const;

    // How many lie in lowest..highest, both included.
    std::uint64_t CountBetween(double lowest, double highest) const;

  private:
    void TurnToBuckets();

    // The counts in rising order of intervals.
    std::vector<std::pair<std::int64_t, std::uint64_t>> Sorted() const;

    std::unordered_map<std::int64_t, std::uint64_t> Exact;
    std::vector<std::uint64_t> Buckets;
    std::uint64_t Total = 0;
    std::int64_t Least = 0, Most = 0;
    std::int64_t LastInterval = 0;  // most files repeat one interval
    std::uint64_t* LastCount = nullptr;
};

}  // namespace kelvarin::check
