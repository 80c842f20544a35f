// The times of samples by their numbers, and the numbers by times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>

#include "host/store/TimeAxis.h"
#include "host/store/ValueReader.h"

namespace kelvarin::store {
// The times in the kept blocks of an axis, found in a pass over them; takes 40 bytes for a block of up to
// 1024. The times must not fall. Any number of threads may read, also while the axis grows.
class TimeIndex {
  public:
    // At most `most` times. Nothing is asked of the axis afterwards. `before` is null or the index that was
    // made of the same axis last, with which this one shares what that one knows.
    explicit TimeIndex(std::shared_ptr<const TimeAxis> axis,
                       std::uint64_t most = std::numeric_limits<std::uint64_t>::max(),
                       const TimeIndex* before = nullptr);

    // Times that can be read.
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

    std::size_t TimeBytes() const;
    std::size_t IndexBytes() const { return Blocks * sizeof(Entry); }

  private:
    struct Entry {
        KeptBlock Changes;
        std::uint64_t Begin;      // the number of its first time
        TimeAxis::Moment Before;  // it
    };

    // Calls `visit` with each time of a block until it returns false.
    template <class Visit>
    static void VisitBlock(const Entry& entry, Visit visit);

    const std::shared_ptr<const TimeAxis> Axis;
    const std::shared_ptr<BlockTable<Entry>> Known;
    const std::size_t Blocks;  // that this index knows of
    std::uint64_t End = 0;     // times in them
    TimeAxis::Moment Behind;   // them
    std::uint64_t Rows = 0;
};
}  // namespace kelvarin::store
