#include "view/model/GrowingSignals.h"

#include <algorithm>
#include <numeric>

namespace kelvarin::view {
// Columns fill their blocks at different rows: what is shown ends at the last row that all have.
void GrowingSignals::GrowBases(const store::StoredDevice& device, const std::vector<std::size_t>& numbers) {
    std::map<std::shared_ptr<const store::TimeAxis>, std::uint64_t> rows;
    for (const std::size_t number : numbers) {
        const std::uint64_t settled = device.Signals[number]->SettledCount();
        const auto [found, isNew] = rows.emplace(device.Signals[number]->Times(), settled);
        const bool isLess = settled != 0 && (found->second == 0 || settled < found->second);
        if (isLess) found->second = settled;
    }
    for (const auto& [axis, count] : rows) {
        if (axis == nullptr) continue;
        std::shared_ptr<const TimeBase>& base = Times[axis];
        base = std::make_shared<TimeBase>(axis, count, base.get());
    }
}

std::vector<std::shared_ptr<const PlottedSignal>> GrowingSignals::Make(
    const std::shared_ptr<const store::StoredDevice>& device, const std::vector<std::size_t>& numbers) {
    GrowBases(*device, numbers);
    Latest.resize(device->Signals.size());
    std::vector<std::shared_ptr<const PlottedSignal>> made;
    for (const std::size_t number : numbers) {
        const store::StoredSignal& signal = *device->Signals[number];
        std::shared_ptr<const PlottedSignal>& latest = Latest[number];
        latest =
            std::make_shared<PlottedSignal>(device, signal, Times[signal.Times()], Threads, latest.get());
        made.push_back(latest);
    }
    return made;
}

std::vector<std::shared_ptr<const PlottedSignal>> GrowingSignals::MakeAll(
    const std::shared_ptr<const store::StoredDevice>& device) {
    std::vector<std::size_t> numbers(device->Signals.size());
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    return Make(device, numbers);
}
}  // namespace kelvarin::view
