#include "host/check/NullStore.h"

#include <string_view>

#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

// The module names a signal by a word and the number of its column.
int NumberAtEnd(std::u16string_view name) {
    int number = 0;
    int place = 1;
    for (std::size_t i = name.size(); i > 0 && IsDigit(name[i - 1]) && place < 1'000'000; --i) {
        number += (name[i - 1] - u'0') * place;
        place *= 10;
    }
    return number;
}

}  // namespace

DM::EResult NullStore::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t,
                                    std::uint32_t) {
    Signals.push_back(std::make_unique<NullSignal>(NumberAtEnd(name), RowTime));
    signal = Signals.back().get();
    return DM::ResultOk;
}

}  // namespace kelvarin::check
