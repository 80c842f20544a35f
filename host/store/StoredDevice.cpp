#include "host/store/StoredDevice.h"

#include <algorithm>
#include <utility>

#include "host/store/SharedStore.h"
#include "host/store/ValueReader.h"

namespace kelvarin::store {
std::unique_ptr<ValueReader> StoredSignal::ReadValues(std::uint64_t, const ValueReader*) const {
    return nullptr;
}

std::shared_ptr<const TimeAxis> StoredSignal::Times() const {
    return nullptr;
}

StoredDevice::StoredDevice(std::u16string name, std::u16string description, std::uint64_t keepLimit,
                           DeviceSink* sink, std::vector<int> columns)
    : Name(std::move(name)),
      Description(std::move(description)),
      Columns(std::move(columns)),
      Store(std::make_unique<SharedStore>(keepLimit, sink)) {}

StoredDevice::~StoredDevice() = default;

DM::EResult StoredDevice::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                       std::uint32_t size) {
    if (MadeAgain) return FindSignal(signal, name, type, size);
    const std::size_t index = Signals.size();
    const int column = index < Columns.size() ? Columns[index] : -1;
    SignalDescription description{name, type, size, column, {}, {}, {}};
    Signals.push_back(MakeSignal(std::move(description), static_cast<std::uint32_t>(index + 1), *Store));
    signal = Signals.back().get();
    return DM::ResultOk;
}

// A run of the same settings makes the same signals in the same order.
DM::EResult StoredDevice::FindSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                     std::uint32_t size) {
    if (*MadeAgain == Signals.size()) return DM::ResultRefused;
    StoredSignal& next = *Signals[*MadeAgain];
    const SignalDescription about = next.Description();
    if (about.Name != name || about.Type != type || about.Size != size) return DM::ResultRefused;
    signal = &next;
    ++*MadeAgain;
    return DM::ResultOk;
}

std::unique_ptr<StoredDevice> StoredDevice::MakePart() {
    Store->Parts.reserve(++Store->PartsMade);  // for Keep
    auto part = std::make_unique<StoredDevice>(Name, Description, 0, nullptr, Columns);
    const bool keepsNothing = Store->KeepLimit == 0 && Store->Sink == nullptr;
    const std::uint64_t keepLimit = keepsNothing ? 0 : ~std::uint64_t{0};
    part->Store = std::make_unique<SharedStore>(keepLimit, nullptr, true);
    return part;
}

void StoredDevice::Close() {
    for (const auto& signal : Signals) signal->Close();
}

bool StoredDevice::Append(StoredDevice& part) {
    const auto hasSharedTimes = [](const auto& signal) { return signal->HasSharedTimes(); };
    if (Signals.size() != part.Signals.size() ||
        !std::all_of(Signals.begin(), Signals.end(), hasSharedTimes) ||
        !std::all_of(part.Signals.begin(), part.Signals.end(), hasSharedTimes))
        return false;
    const bool keep = Store->Axis->Count() < Store->KeepLimit;
    // A sink gets the time of a row before the last of its samples.
    if (Store->Sink != nullptr)
        part.Store->Axis->VisitTimes([&](std::int64_t time) { Store->Sink->TakeTime(time); });
    for (std::size_t i = 0; i < Signals.size(); ++i) Signals[i]->Take(*part.Signals[i], keep);
    Store->Axis->Take(*part.Store->Axis);
    if (keep) {
        part.Store->Memory.Retain();
    } else {
        part.Clear();
    }
    return true;
}

void StoredDevice::Clear() {
    for (const auto& signal : Signals) signal->Drop();
    Store->Axis->Clear();
    Store->Memory.Rewind();
}

void StoredDevice::Keep(std::unique_ptr<StoredDevice> part) {
    Store->Parts.push_back(std::move(part));
}

void StoredDevice::Finish() {
    for (const auto& signal : Signals) signal->Finish();
}

void StoredDevice::Resume() {
    for (const auto& signal : Signals) signal->Resume();
    MadeAgain = 0;
}
}  // namespace kelvarin::store
