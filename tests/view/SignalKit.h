// Signals to plot, made of lists of times and values.
#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/store/StoredDevice.h"
#include "view/model/PlottedSignal.h"

namespace view_tests {
// A finished device with one signal of numbers for each list of values; not a number is a sample without a
// value in the last of them if `hasGaps`.
inline std::shared_ptr<kelvarin::store::StoredDevice> DeviceOf(const std::vector<std::int64_t>& times,
                                                               const std::vector<std::vector<double>>& values,
                                                               bool hasGaps = false) {
    auto device = std::make_shared<kelvarin::store::StoredDevice>(u"device", u"", ~std::uint64_t{0});
    for (std::size_t i = 0; i < values.size(); ++i) {
        DM::SignalProxy* signal = nullptr;
        const std::string name = "s" + std::to_string(i);
        device->CreateSignal(signal, std::u16string(name.begin(), name.end()).c_str(), KelvarinDouble, 8);
    }
    for (std::size_t row = 0; row < times.size(); ++row) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double value = values[i][row];
            device->Signals[i]->AddSample(hasGaps && std::isnan(value) ? nullptr : &value, 8, times[row]);
        }
    }
    device->Finish();
    return device;
}

// A signal of a device; signals made by one call share their times.
inline std::vector<std::shared_ptr<const kelvarin::view::PlottedSignal>> SignalsOf(
    const std::shared_ptr<kelvarin::store::StoredDevice>& device) {
    using namespace kelvarin::view;
    std::vector<std::shared_ptr<const PlottedSignal>> signals;
    const auto base = std::make_shared<TimeBase>(device->Signals[0]->Times());
    for (const auto& signal : device->Signals)
        signals.push_back(std::make_shared<PlottedSignal>(device, *signal, base));
    return signals;
}

inline std::shared_ptr<const kelvarin::view::PlottedSignal> SignalOf(const std::vector<std::int64_t>& times,
                                                                     const std::vector<double>& values) {
    return SignalsOf(DeviceOf(times, {values}))[0];
}

// 0, step, 2 steps and so on.
inline std::vector<std::int64_t> EvenTimes(std::size_t count, std::int64_t step) {
    std::vector<std::int64_t> times;
    for (std::size_t i = 0; i < count; ++i) times.push_back(static_cast<std::int64_t>(i) * step);
    return times;
}
}  // namespace view_tests
