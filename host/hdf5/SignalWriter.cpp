#include "host/hdf5/SignalWriter.h"

#include <cstring>
#include <limits>
#include <type_traits>

#include "contract/DataStore.h"
#include "host/hdf5/ElementTypes.h"
#include "host/hdf5/Layout.h"

namespace kelvarin::hdf5 {

namespace {

template <class Value>
class ValueWriter final : public SignalWriter {
  public:
    explicit ValueWriter(DeviceState& state)
        : State(state), Values(state.Place, ElementOf<Value>()), Flags(state.Place) {}

    void TakeValues(const void* values, std::size_t count, const std::uint8_t* gaps) override {
        State.Try([&] {
            Values.Append(Presentable(values, count, gaps), count, State.ChunkValues);
            Flags.Append(gaps, count, State.ChunkValues);
        });
    }
    void TakeText(const char16_t*, std::size_t) override {}

    void Finish(hid_t group) override {
        Values.Finish(group, Layout::Value);
        Flags.Finish(group, Layout::Valid);
    }
    std::uint64_t Count() const override { return Values.Count(); }

  private:
    // The values as the file has them: truth is 1, and a number that isn't there is not a number, so that
    // sums and plots of careless readers show it.
    const void* Presentable(const void* values, std::size_t count, const std::uint8_t* gaps) {
        constexpr bool IsTruth = std::is_same_v<Value, std::uint8_t>;
        constexpr bool IsReal = std::is_same_v<Value, double>;
        if (!IsTruth && !(IsReal && gaps != nullptr)) return values;
        Changed.resize(count);
        std::memcpy(Changed.data(), values, count * sizeof(Value));
        for (std::size_t i = 0; i < count; ++i) {
            if constexpr (IsTruth) Changed[i] = Changed[i] != 0;
            if constexpr (IsReal) {
                if (gaps[i] != 0) Changed[i] = std::numeric_limits<double>::quiet_NaN();
            }
        }
        return Changed.data();
    }

    DeviceState& State;
    ColumnWriter Values;
    FlagWriter Flags;
    std::vector<Value> Changed;
};

// Texts one behind the other, and the length of each.
class TextWriter final : public SignalWriter {
  public:
    explicit TextWriter(DeviceState& state)
        : State(state),
          Lengths(state.Place, ElementOf<std::uint32_t>()),
          Units(state.Place, ElementOf<char16_t>()),
          Flags(state.Place) {}

    void TakeValues(const void*, std::size_t, const std::uint8_t*) override {}

    void TakeText(const char16_t* text, std::size_t length) override {
        State.Try([&] {
            const auto known = static_cast<std::uint32_t>(text == nullptr ? 0 : length);
            const std::uint8_t gap = text == nullptr;
            Lengths.Append(&known, 1, State.ChunkValues);
            Units.Append(text, known, State.ChunkValues * UnitsPerText);
            Flags.Append(text == nullptr ? &gap : nullptr, 1, State.ChunkValues);
        });
    }

    void Finish(hid_t group) override {
        Units.Finish(group, Layout::Text);
        Lengths.Finish(group, Layout::Length);
        Flags.Finish(group, Layout::Valid);
    }
    std::uint64_t Count() const override { return Lengths.Count(); }

  private:
    static constexpr std::size_t UnitsPerText = 4;  // a chunk of texts is then as large as one of numbers

    DeviceState& State;
    ColumnWriter Lengths, Units;
    FlagWriter Flags;
};

}  // namespace

std::unique_ptr<SignalWriter> MakeSignalWriter(std::uint32_t type, DeviceState& state) {
    switch (type) {
        case KelvarinBool:
            return std::make_unique<ValueWriter<std::uint8_t>>(state);
        case KelvarinInt64:
            return std::make_unique<ValueWriter<std::int64_t>>(state);
        case KelvarinDouble:
            return std::make_unique<ValueWriter<double>>(state);
        case KelvarinChar16:
            return std::make_unique<ValueWriter<char16_t>>(state);
        default:
            return std::make_unique<TextWriter>(state);
    }
}

}  // namespace kelvarin::hdf5
