#include "app/StoredDevice.h"

#include <utility>

StoredDevice::StoredDevice(std::u16string name, std::u16string description, std::size_t keepLimit)
    : Name(std::move(name)), Description(std::move(description)), KeepLimit(keepLimit) {}

DM::EResult StoredDevice::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                       std::uint32_t size) {
    const auto id = static_cast<std::uint32_t>(Signals.size() + 1);
    Signals.push_back(std::make_unique<StoredSignal>(name, type, size, id, KeepLimit));
    signal = Signals.back().get();
    return DM::ResultOk;
}
