// The making of the signals of a store.
#include <utility>

#include "host/store/CountedSignal.h"
#include "host/store/FixedSignal.h"
#include "host/store/TextSignal.h"

namespace kelvarin::store {
std::unique_ptr<StoredSignal> MakeSignal(SignalDescription description, std::uint32_t id,
                                         SharedStore& store) {
    constexpr std::uint32_t MostLookedAt = 1000;
    if (id > MostLookedAt && store.KeepLimit == 0 && store.Sink == nullptr)
        return std::make_unique<CountedSignal>(description, id, store);
    switch (description.Type) {
        case KelvarinBool:
            return std::make_unique<FixedSignal<std::uint8_t>>(std::move(description), id, store);
        case KelvarinInt64:
            return std::make_unique<FixedSignal<std::int64_t>>(std::move(description), id, store);
        case KelvarinDouble:
            return std::make_unique<FixedSignal<double>>(std::move(description), id, store);
        case KelvarinChar16:
            return std::make_unique<FixedSignal<char16_t>>(std::move(description), id, store);
        default:
            return std::make_unique<TextSignal>(std::move(description), id, store);
    }
}
}  // namespace kelvarin::store
