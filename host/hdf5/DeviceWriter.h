// A device on its way into a file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/hdf5/SignalWriter.h"
#include "host/store/SampleFile.h"

namespace kelvarin::hdf5 {

// Gathers the samples of all signals and the times that they share; becomes a group of the file at the end.
class DeviceWriter final : public store::DeviceSink {
  public:
    // The file and the packer must outlive it.
    DeviceWriter(hid_t file, ChunkPacker& packer);
    ~DeviceWriter() override;

    store::SignalSink* AddSignal(const store::SignalDescription& about) override;
    void TakeTime(std::int64_t time) override;
    bool HasFailed() const override { return !State.Failure.empty(); }

    // Makes the device's group under the root. False: see Failure.
    bool Keep(const store::StoredDevice& device, const store::SampleOrigin& origin);

    const std::string& Failure() const { return State.Failure; }

  private:
    void WriteGroup(const store::StoredDevice& device, const store::SampleOrigin& origin);
    void WriteSignals(hid_t group, const store::StoredDevice& device);
    void FlushTimes();

    const hid_t File;
    Hdf5Handle Unfinished;  // the group of data sets without a place
    DeviceState State;
    ColumnWriter Times;
    std::vector<std::int64_t> NewTimes;  // not in Times yet
    std::vector<std::unique_ptr<SignalWriter>> Signals;
};

}  // namespace kelvarin::hdf5
