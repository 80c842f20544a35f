// A device of the embedded host's store, which is its own source of signals.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contract/DeviceHost.h"
#include "host/store/StoredSignal.h"

namespace kelvarin::store {

class StoredDevice : public CDevice, public DM::SourceProxy {
  public:
    // Its signals keep at most `keepLimit` samples each. All of them go to `sink` too, unless it is null.
    StoredDevice(std::u16string name, std::u16string description, std::uint64_t keepLimit,
                 DeviceSink* sink = nullptr);

    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override;

    // No samples come any more.
    void Finish();

    const std::u16string Name;
    const std::u16string Description;

  private:
    SharedStore Store;

  public:
    std::vector<std::unique_ptr<StoredSignal>> Signals;  // in the order of their making
};

}  // namespace kelvarin::store
