#include "host/store/TimeAxis.h"

#include <algorithm>

namespace kelvarin::store {

TimeAxis::TimeAxis(const TimeAxis& other, std::uint64_t count) : TimeAxis(other.KeepLimit, other.Memory) {
    Reader reader(other);
    while (Rows < std::min(count, KeepLimit)) Append(reader.Next());
    FirstTime = other.FirstTime;
    Rows = count;
}

void TimeAxis::Append(std::int64_t time) {
    const std::int64_t step = WrappingSubtract(time, Now.Time);
    if (Rows < KeepLimit) {
        if (Changes.IsFull()) Changes.Turn(true);
        Changes.Append(WrappingSubtract(step, Now.Step));
    }
    if (Rows == 0) FirstTime = time;
    Now = {time, step};
    ++Rows;
}

}  // namespace kelvarin::store
