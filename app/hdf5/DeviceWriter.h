// A device on its way into a file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/archive/SampleFile.h"
#include "app/hdf5/SignalWriter.h"

// Gathers the samples of all signals and the times that they share; becomes a group of the file at the end.
class DeviceWriter final : public DeviceSink {
  public:
    explicit DeviceWriter(const DatasetPlace& place);

    SignalSink* AddSignal(const SignalDescription& about) override;
    void TakeTime(std::int64_t time) override;
    bool HasFailed() const override { return !State.Failure.empty(); }

    // Makes the device's group under the root. False: see Failure.
    bool Keep(const StoredDevice& device, const SampleOrigin& origin);

    const std::string& Failure() const { return State.Failure; }

  private:
    void WriteGroup(const StoredDevice& device, const SampleOrigin& origin);
    void WriteSignals(hid_t group, const StoredDevice& device, hid_t times);
    void FlushTimes();

    DeviceState State;
    ColumnWriter Times;
    std::vector<std::int64_t> NewTimes;  // not in Times yet
    std::vector<std::unique_ptr<SignalWriter>> Signals;
};
