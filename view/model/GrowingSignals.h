// The signals of a file as plots need them, made again and again while the file is read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <thread>
#include <vector>

#include "host/store/StoredDevice.h"
#include "view/model/PlottedSignal.h"

namespace kelvarin::view {
// Each making reads only what has come since the one before: all of them together cost what one does. What
// was made stays as it is, and any thread may have it. One thread at a time makes signals, and not while the
// device is filled.
class GrowingSignals {
  public:
    // Reads on so many threads, by default on all processors.
    explicit GrowingSignals(std::size_t threads = Processors()) : Threads(threads) {}

    static std::size_t Processors() { return std::max(1u, std::thread::hardware_concurrency()); }

    // Makes signals of a device, always the same one, by their numbers from 0, from the samples that are
    // settled. Signals that share their times all end at the same one.
    std::vector<std::shared_ptr<const PlottedSignal>> Make(
        const std::shared_ptr<const store::StoredDevice>& device, const std::vector<std::size_t>& numbers);

    // Makes all signals of it.
    std::vector<std::shared_ptr<const PlottedSignal>> MakeAll(
        const std::shared_ptr<const store::StoredDevice>& device);

  private:
    using Bases = std::map<std::shared_ptr<const store::TimeAxis>, std::shared_ptr<const TimeBase>>;

    void GrowBases(const store::StoredDevice& device, const std::vector<std::size_t>& numbers);

    const std::size_t Threads;
    Bases Times;
    std::vector<std::shared_ptr<const PlottedSignal>> Latest;  // by number; null for those not made yet
};
}  // namespace kelvarin::view
