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

TimeIndex::TimeIndex(std::shared_ptr<const TimeAxis> axis, std::uint64_t most, const TimeIndex* before)
    : Axis(std::move(axis)),
      Known(before == nullptr ? std::make_shared<BlockTable<Entry>>() : before->Known),
      Blocks(Axis->Kept().size()) {
    std::size_t first = 0;
    if (before != nullptr) {
        first = before->Blocks;
        End = before->End;
        Behind = before->Behind;
    }
    Known->Entries.MakeRoom(Blocks);
    for (std::size_t block = first; block < Blocks; ++block) {
        const KeptBlock& kept = Axis->Kept()[block];
        Known->Entries[block] = {kept, End, Behind};
        End += kept.Count;
        BlockList<std::int64_t>::VisitBlock(
            kept, [this](std::span<const std::int64_t> changes) { Behind = After(Behind, changes); });
    }
    Rows = std::min(End, most);
}

template <class Visit>
void TimeIndex::VisitBlock(const Entry& entry, Visit visit) {
    BlockList<std::int64_t>::VisitBlock(entry.Changes, [&](std::span<const std::int64_t> changes) {
        TimeAxis::Moment moment = entry.Before;
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
    const std::size_t firstBlock = Known->BlockOf(first, Blocks);
    std::uint64_t skip = first - Known->Entries[firstBlock].Begin;
    for (std::size_t block = firstBlock; done < times.size(); ++block) {
        VisitBlock(Known->Entries[block], [&](std::int64_t time) {
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
    if (Blocks == 0) return 0;
    // The moment before a block is its predecessor's last time. The first block has none.
    const std::size_t found = Known->FirstBlock(
        Blocks, [time](const Entry& entry) { return entry.Begin != 0 && entry.Before.Time >= time; });
    const Entry& entry = Known->Entries[found == 0 ? 0 : found - 1];
    std::uint64_t row = entry.Begin;
    VisitBlock(entry, [&](std::int64_t at) {
        if (at >= time) return false;
        ++row;
        return true;
    });
    return std::min(row, Rows);
}

std::size_t TimeIndex::TimeBytes() const {
    std::size_t bytes = 0;
    for (std::size_t block = 0; block < Blocks; ++block) {
        const KeptBlock& kept = Known->Entries[block].Changes;
        bytes += std::size_t{kept.Count} * kept.Width;
    }
    return bytes;
}
}  // namespace kelvarin::store
