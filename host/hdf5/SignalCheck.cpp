#include "host/hdf5/SignalCheck.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "contract/DataStore.h"
#include "host/Words.h"
#include "host/hdf5/ElementTypes.h"
#include "host/hdf5/Layout.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {

namespace {

// What both kinds of signals do.
class CheckBase : public SignalCheck {
  public:
    CheckBase(const SignalPlace& place, const store::SignalDescription& about, CheckState& state)
        : About(about), State(state) {
        const std::string flags = place.PathOf(Layout::Valid);
        if (Hdf5Checked(H5Lexists(place.Device, flags.c_str(), H5P_DEFAULT)) > 0)
            Flags.emplace(place.Device, flags, ElementOf<std::uint8_t>());
    }

  protected:
    // The next flags of the file are needed for a value each.
    bool StoredHasValue() { return !Flags || Take(*Flags, 1)[0] != 0; }

    // Exactly `count` elements, which may lie in several blocks; raises Hdf5Error if there are fewer.
    static std::vector<std::uint8_t> Take(ColumnReader& reader, std::size_t count) {
        std::vector<std::uint8_t> all;
        while (count != 0) {
            const std::span<const std::uint8_t> part = reader.Next(count);
            if (part.empty()) throw Hdf5Error(Phrase("its data sets are of different lengths"));
            all.insert(all.end(), part.begin(), part.end());
            count -= part.size() / reader.Width();
        }
        return all;
    }

    void Report(std::uint64_t sample, const char* what, std::string stored, std::string imported) {
        State.Report({Utf16ToUtf8(About.Symbol), sample, what, std::move(stored), std::move(imported)});
    }

    const store::SignalDescription& About;
    CheckState& State;
    std::optional<ColumnReader> Flags;
    std::uint64_t Row = 0;
};

constexpr const char* NoValue = "-";

template <class Value>
class ValueCheck final : public CheckBase {
  public:
    ValueCheck(const SignalPlace& place, const store::SignalDescription& about, CheckState& state)
        : CheckBase(place, about, state),
          Values(place.Device, place.PathOf(Layout::Value), ElementOf<Value>()) {}

    void TakeValues(const void* values, std::size_t count, const std::uint8_t* gaps) override {
        State.Try([&] {
            const auto* next = static_cast<const std::uint8_t*>(values);
            while (count != 0) {
                const std::span<const std::uint8_t> stored = Values.Next(count);
                if (stored.empty()) {
                    Report(Row, "sample", NoValue, TextOf(next));
                    return;
                }
                const std::size_t part = stored.size() / sizeof(Value);
                ComparePart(stored, next, gaps, part);
                Row += part;
                State.Compared += part;
                next += stored.size();
                if (gaps != nullptr) gaps += part;
                count -= part;
            }
        });
    }
    void TakeText(const char16_t*, std::size_t) override {}

    void Finish() override {
        State.Try([&] {
            const std::span<const std::uint8_t> more = Values.Next(1);
            if (!more.empty()) Report(Row, "sample", TextOf(more.data()), NoValue);
        });
    }

  private:
    void ComparePart(std::span<const std::uint8_t> stored, const std::uint8_t* imported,
                     const std::uint8_t* gaps, std::size_t count) {
        if (!Flags && gaps == nullptr && std::memcmp(stored.data(), imported, stored.size()) == 0) return;
        const std::vector<std::uint8_t> flags =
            Flags ? Take(*Flags, count) : std::vector<std::uint8_t>(count, 1);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint8_t* const ours = stored.data() + i * sizeof(Value);
            const std::uint8_t* const theirs = imported + i * sizeof(Value);
            const bool isStored = flags[i] != 0;
            const bool isImported = gaps == nullptr || gaps[i] == 0;
            if (isStored == isImported && (!isStored || AreEqual(ours, theirs))) continue;
            Report(Row + i, "value", isStored ? TextOf(ours) : NoValue,
                   isImported ? TextOf(theirs) : NoValue);
            return;
        }
    }

    static bool AreEqual(const std::uint8_t* stored, const std::uint8_t* imported) {
        if constexpr (std::is_same_v<Value, std::uint8_t>) return *stored == (*imported != 0);
        return std::memcmp(stored, imported, sizeof(Value)) == 0;
    }

    std::string TextOf(const std::uint8_t* bytes) const {
        return SampleText(About.Type, bytes, sizeof(Value));
    }

    ColumnReader Values;
};

class TextCheck final : public CheckBase {
  public:
    TextCheck(const SignalPlace& place, const store::SignalDescription& about, CheckState& state)
        : CheckBase(place, about, state),
          Lengths(place.Device, place.PathOf(Layout::Length), ElementOf<std::uint32_t>()),
          Units(place.Device, place.PathOf(Layout::Text), ElementOf<char16_t>()) {}

    void TakeValues(const void*, std::size_t, const std::uint8_t*) override {}

    void TakeText(const char16_t* text, std::size_t length) override {
        State.Try([&] {
            const std::optional<std::string> stored = NextText();
            std::optional<std::string> imported;
            if (text != nullptr) imported.emplace(reinterpret_cast<const char*>(text), length * sizeof *text);
            if (!stored) {
                Report(Row, "sample", NoValue, TextOf(imported));
            } else {
                const bool isStored = StoredHasValue();
                if (isStored != imported.has_value() || (isStored && *stored != *imported))
                    Report(Row, "value", isStored ? TextOf(stored) : NoValue, TextOf(imported));
            }
            ++Row;
            ++State.Compared;
        });
    }

    void Finish() override {
        State.Try([&] {
            if (const auto more = NextText()) {
                Report(Row, "sample", TextOf(more), NoValue);
            } else if (!Units.Next(1).empty()) {
                throw Hdf5Error(Phrase("its data sets are of different lengths"));
            }
        });
    }

  private:
    // The bytes of the file's next text; nothing at its end.
    std::optional<std::string> NextText() {
        const std::span<const std::uint8_t> bytes = Lengths.Next(1);
        if (bytes.empty()) return std::nullopt;
        std::uint32_t length = 0;
        std::memcpy(&length, bytes.data(), sizeof length);
        const std::vector<std::uint8_t> units = Take(Units, length);
        return std::string(units.begin(), units.end());
    }

    std::string TextOf(const std::optional<std::string>& bytes) const {
        if (!bytes) return NoValue;
        return SampleText(KelvarinString, bytes->data(), static_cast<std::uint32_t>(bytes->size()));
    }

    ColumnReader Lengths, Units;
};

}  // namespace

void CheckState::Report(store::SampleCheck::Difference difference) {
    const auto rank = [](const store::SampleCheck::Difference& one) {
        return one.Sample.value_or(~std::uint64_t{0});
    };
    if (!First || rank(difference) < rank(*First)) First = std::move(difference);
}

std::unique_ptr<SignalCheck> MakeSignalCheck(const SignalPlace& place, const store::SignalDescription& about,
                                             CheckState& state) {
    switch (about.Type) {
        case KelvarinBool:
            return std::make_unique<ValueCheck<std::uint8_t>>(place, about, state);
        case KelvarinInt64:
            return std::make_unique<ValueCheck<std::int64_t>>(place, about, state);
        case KelvarinDouble:
            return std::make_unique<ValueCheck<double>>(place, about, state);
        case KelvarinChar16:
            return std::make_unique<ValueCheck<char16_t>>(place, about, state);
        default:
            return std::make_unique<TextCheck>(place, about, state);
    }
}

}  // namespace kelvarin::hdf5
