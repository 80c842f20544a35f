// Compares a device with one of a file.
#pragma once

#include <memory>
#include <vector>

#include "host/hdf5/SignalCheck.h"

namespace kelvarin::hdf5 {

class DeviceCheck final : public store::SampleCheck {
  public:
    // With the device of this group; raises Hdf5Error.
    explicit DeviceCheck(Hdf5Handle group);

    const store::SampleOrigin& Origin() const override { return About; }
    store::SignalSink* AddSignal(const store::SignalDescription& about) override;
    void TakeTime(std::int64_t time) override;
    bool HasFailed() const override { return State.IsDecided(); }
    const Difference* Compare(const store::StoredDevice& device) override;
    const std::string& Failure() const override { return State.Failure; }
    std::uint64_t Compared() const override { return State.Compared; }

  private:
    void CompareTexts(const store::StoredDevice& device);

    // Reports a difference of something that isn't a sample.
    void CompareField(const std::string& signal, const char* what, const std::string& stored,
                      const std::string& imported);

    Hdf5Handle Group;
    store::SampleOrigin About;
    CheckState State;
    std::vector<std::string> Names;  // of the groups of the file's signals
    ColumnReader Times;
    std::uint64_t Rows = 0;
    std::vector<std::unique_ptr<SignalCheck>> Signals;
};

}  // namespace kelvarin::hdf5
