#include "host/store/StoredSignal.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "host/store/StoredValues.h"

namespace kelvarin::store {

StoredSignal::StoredSignal(SignalDescription description, std::uint32_t id, const SharedStore& store)
    : Axis(store.Axis),
      About(std::move(description)),
      Id{{0, 0, 0}, id},
      KeepLimit(store.KeepLimit),
      TimeSink(store.Sink) {
    if (TimeSink != nullptr) Sink = TimeSink->AddSignal(About);
}

DM::EResult StoredSignal::WriteMetaData(std::uint32_t, const DM::XmlString& xml) {
    About.MetaData.push_back(xml.GetString());
    return DM::ResultOk;
}

void StoredSignal::AppendTime(std::int64_t time) {
    if (Axis->Count() != Sum.Count) {
        Axis = std::make_shared<TimeAxis>(*Axis, Sum.Count);
        // A sink knows the shared times alone; it sees that the signal falls behind them.
        Sink = nullptr;
        TimeSink = nullptr;
    }
    Axis->Append(time);
    if (TimeSink != nullptr) TimeSink->TakeTime(time);
}

void StoredSignal::Finish() {
    Sum.FirstTime = Axis->First();
    SummarizeRest();
}

std::uint64_t StoredSignal::CountKept(std::uint64_t limit) const {
    return std::min({limit, KeepLimit, Sum.Count});
}

void StoredSignal::SummarizeEnds(const void* first, const void* last, std::size_t size) {
    if (!Sum.First) Sum.First.emplace(static_cast<const char*>(first), size);
    Sum.Last.emplace(static_cast<const char*>(last), size);
}

std::unique_ptr<StoredSignal> MakeStoredSignal(SignalDescription description, std::uint32_t id,
                                               SharedStore& store) {
    const auto make = [&]<class Signal>(std::type_identity<Signal>) -> std::unique_ptr<StoredSignal> {
        return std::make_unique<Signal>(std::move(description), id, store);
    };
    switch (description.Type) {
        case KelvarinBool:
            return make(std::type_identity<FixedSignal<std::uint8_t>>{});
        case KelvarinInt64:
            return make(std::type_identity<FixedSignal<std::int64_t>>{});
        case KelvarinDouble:
            return make(std::type_identity<FixedSignal<double>>{});
        case KelvarinChar16:
            return make(std::type_identity<FixedSignal<char16_t>>{});
        default:
            return make(std::type_identity<TextSignal>{});
    }
}

}  // namespace kelvarin::store
