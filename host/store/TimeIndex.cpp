#include "host/store/TimeIndex.h"

#include <algorithm>
#include <utility>

#include "platform/framework/Numbers.h"

namespace kelvarin::store {
namespace {
// The moment after the changes. No step of it waits for the one before but for two sums.
TimeAxis::Moment After(TimeAxis::Moment moment, std::span<const std::int64_t> changes) {
    std::uint64_t step = 0;
    std::uint64_t distance = 0;
    std::uint64_t weight = changes.size();
    for (const std::int64_t change : changes) {
        step += static_cast<std::uint64_t>(change);
        distance += weight-- * static_cast<std::uint64_t>(change);
    }
    distance += changes.size() * static_cast<std::uint64_t>(moment.Step);
    return {WrappingAdd(moment.Time, static_cast<std::int64_t>(distance)),
            WrappingAdd(moment.Step, static_cast<std::int64_t>(step))};
}
}  // namespace

TimeIndex::TimeIndex(std::shared_ptr<const TimeAxis> axis) : Axis(std::move(axis)), Starts(Axis->Kept()) {
    const std::size_t blocks = Axis->Kept().BlockCount();
    Moments.reserve(blocks);
    TimeAxis::Moment moment;
    Axis->Kept().VisitBlocks([&](std::span<const std::int64_t> changes) {
        Moments.push_back(moment);
        moment = After(moment, changes);
    });
    Rows = Starts.Begin(blocks);
}

template <class Visit>
void TimeIndex::VisitBlock(std::size_t block, Visit visit) const {
    Axis->Kept().VisitBlockAt(block, [&](std::span<const std::int64_t> changes) {
        TimeAxis::Moment moment = Moments[block];
        for (const std::int64_t change : changes) {
            moment.Step = WrappingAdd(moment.Step, change);
            moment.Time = WrappingAdd(moment.Time, moment.Step);
            if (!visit(moment.Time)) return;
        }
    });
}

std::int64_t TimeIndex::TimeAt(std::uint64_t row) const {
    std::int64_t time = 0;
    Read(row, std::span(&time, 1));
    return time;
}

void TimeIndex::Read(std::uint64_t first, std::span<std::int64_t> times) const {
    if (times.empty()) return;
    std::size_t done = 0;
    const std::size_t firstBlock = Starts.BlockOf(first);
    std::uint64_t skip = first - Starts.Begin(firstBlock);
    for (std::size_t block = firstBlock; done < times.size(); ++block) {
        VisitBlock(block, [&](std::int64_t time) {
            if (skip != 0) {
                --skip;
                return true;
            }
            times[done++] = time;
            return done < times.size();
        });
    }
}

std::uint64_t TimeIndex::RowsBefore(std::int64_t time) const {
    // The moment before a block is its predecessor's last time. The first block has none.
    const auto isEarlier = [](const TimeAxis::Moment& moment, std::int64_t wanted) {
        return moment.Time < wanted;
    };
    if (Moments.empty()) return 0;
    const auto found = std::lower_bound(Moments.begin() + 1, Moments.end(), time, isEarlier);
    const auto block = static_cast<std::size_t>(found - Moments.begin()) - 1;
    std::uint64_t row = Starts.Begin(block);
    VisitBlock(block, [&](std::int64_t at) {
        if (at >= time) return false;
        ++row;
        return true;
    });
    return row;
}
}  // namespace kelvarin::store
