#include "host/store/StoredDevice.h"

#include <utility>

namespace kelvarin::store {

StoredDevice::StoredDevice(std::u16string name, std::u16string description, std::uint64_t keepLimit,
                           DeviceSink* sink)
    : Name(std::move(name)), Description(std::move(description)), Store(keepLimit, sink) {}

DM::EResult StoredDevice::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                       std::uint32_t size) {
    const auto id = static_cast<std::uint32_t>(Signals.size() + 1);
    SignalDescription description{name, type, size, {}, {}, {}};
    Signals.push_back(MakeStoredSignal(std::move(description), id, Store));
    signal = Signals.back().get();
    return DM::ResultOk;
}

void StoredDevice::Finish() {
    for (const auto& signal : Signals) signal->Finish();
}

}  // namespace kelvarin::store
