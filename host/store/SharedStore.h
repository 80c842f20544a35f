// What the signals of a device share, and their making.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/Blocks.h"
#include "host/store/StoredDevice.h"
#include "host/store/TimeAxis.h"

namespace kelvarin::store {
struct SharedStore {
    SharedStore(std::uint64_t keepLimit, DeviceSink* sink, bool isPart = false)
        : KeepLimit(keepLimit),
          Sink(sink),
          IsPart(isPart),
          Axis(std::make_shared<TimeAxis>(keepLimit, Memory)) {}

    // A copy that ends with a zero.
    const char16_t* Keep(std::u16string_view text) {
        auto* const kept =
            static_cast<char16_t*>(Memory.Allocate((text.size() + 1) * sizeof(char16_t), alignof(char16_t)));
        *std::copy(text.begin(), text.end(), kept) = u'\0';
        return kept;
    }

    const std::uint64_t KeepLimit;  // samples that each signal keeps
    DeviceSink* const Sink;         // may be null
    const bool IsPart;              // of another device, which summarises its values
    Arena Memory;
    const std::shared_ptr<TimeAxis> Axis;
    std::map<std::uint32_t, std::vector<std::string>> MetaData;  // of signals that only count, by their ids
    std::vector<std::unique_ptr<StoredDevice>> Parts;            // whose memory has samples of this device
    std::size_t PartsMade = 0;
};

// A signal of the description's type; ids count from 1. The store outlives it.
std::unique_ptr<StoredSignal> MakeSignal(SignalDescription description, std::uint32_t id, SharedStore& store);
}  // namespace kelvarin::store
