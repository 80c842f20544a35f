#include "app/TimeAxis.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/framework/Numbers.h"

namespace {

constexpr std::size_t RowsPerStretch = 4096;

}  // namespace

TimeAxis::TimeAxis(const TimeAxis& other, std::uint64_t count) : TimeAxis(other.KeepLimit) {
    Reader reader(other);
    while (Rows < std::min(count, KeepLimit)) Append(reader.Next());
    FirstTime = other.FirstTime;
    Rows = count;
}

void TimeAxis::Append(std::int64_t time) {
    if (Rows < KeepLimit) {
        if (Open.size() == RowsPerStretch) Pack();
        Open.push_back(time);
    }
    if (Rows == 0) FirstTime = time;
    LastTime = time;
    ++Rows;
}

void TimeAxis::Pack() {
    PackedStretch stretch{Open.front(), {}, {}};
    stretch.Steps.reserve(Open.size() - 1);
    for (std::size_t i = 1; i < Open.size(); ++i) {
        const std::int64_t step = WrappingSubtract(Open[i], Open[i - 1]);
        if (step < 0 || step > std::numeric_limits<std::uint32_t>::max()) {
            stretch.Steps = {};
            stretch.Times = Open;
            break;
        }
        stretch.Steps.push_back(static_cast<std::uint32_t>(step));
    }
    Packed.push_back(std::move(stretch));
    Open.clear();
}

std::int64_t TimeAxis::Reader::Next() {
    if (Row == RowsPerStretch) {
        ++Stretch;
        Row = 0;
    }
    const std::size_t row = Row++;
    if (Stretch == Axis.Packed.size()) return Axis.Open[row];
    const PackedStretch& stretch = Axis.Packed[Stretch];
    if (!stretch.Times.empty()) return stretch.Times[row];
    Time = row == 0 ? stretch.First : Time + stretch.Steps[row - 1];
    return Time;
}
