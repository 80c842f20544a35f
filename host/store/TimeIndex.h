// The times of samples by their numbers, and the numbers by times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "host/store/TimeAxis.h"
#include "host/store/ValueReader.h"

namespace kelvarin::store {
// Made once for an axis that no longer grows, in a pass over its times; takes 24 bytes for a block of up to
// 1024. The times must not fall. Any number of threads may read.
class TimeIndex {
  public:
    explicit TimeIndex(std::shared_ptr<const TimeAxis> axis);

    // Times that are kept.
    std::uint64_t Count() const { return Rows; }

    // Nanoseconds; 0 without a time.
    std::int64_t First() const { return Rows == 0 ? 0 : TimeAt(0); }
    std::int64_t Last() const { return Rows == 0 ? 0 : TimeAt(Rows - 1); }

    // The time of a sample, which must be there.
    std::int64_t TimeAt(std::uint64_t row) const;

    // The times from number `first` on, as many as there is room for, which must be there.
    void Read(std::uint64_t first, std::span<std::int64_t> times) const;

    // How many samples are earlier than the moment: the number of the first that is not.
    std::uint64_t RowsBefore(std::int64_t time) const;

    std::size_t TimeBytes() const { return Axis->Kept().Bytes(); }
    std::size_t IndexBytes() const { return Starts.Bytes() + Moments.capacity() * sizeof Moments[0]; }

  private:
    // Calls `visit` with each time of a block until it returns false.
    template <class Visit>
    void VisitBlock(std::size_t block, Visit visit) const;

    const std::shared_ptr<const TimeAxis> Axis;
    const BlockStarts Starts;
    std::vector<TimeAxis::Moment> Moments;  // before each block
    std::uint64_t Rows = 0;
};
}  // namespace kelvarin::store
