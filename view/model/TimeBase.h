// The times that signals of a file share, as plots need them.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "host/store/TimeIndex.h"
#include "view/model/TimeRange.h"

namespace kelvarin::view {
class TimeBase {
  public:
    // At most `most` times of an axis. `before` is null or what was made of this axis last, with which this
    // shares what that one knows.
    explicit TimeBase(std::shared_ptr<const store::TimeAxis> axis,
                      std::uint64_t most = std::numeric_limits<std::uint64_t>::max(),
                      const TimeBase* before = nullptr);

    const store::TimeIndex& Index() const { return Times; }

    // From the first sample to 1 ns after the last; meaningless without samples.
    TimeRange Range() const { return {Times.First(), Times.Last() + 1}; }

    // Samples further apart than this have a gap between them, in nanoseconds.
    std::int64_t GapAbove() const { return Gap; }

    // The numbers of the first samples of `columns` equal parts of the range, and of the one after it. The
    // last result is kept: signals of one time base are drawn one after the other. One thread.
    const std::vector<std::uint64_t>& RowsOfColumns(const TimeRange& range, int columns) const;

  private:
    std::int64_t FindGap() const;

    const store::TimeIndex Times;
    const std::int64_t Gap;
    mutable TimeRange LastRange;
    mutable std::vector<std::uint64_t> LastRows;
};
}  // namespace kelvarin::view
