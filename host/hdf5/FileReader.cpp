// Reads a file of samples along with a fresh import and compares both.
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <optional>
#include <sstream>

#include "host/Words.h"
#include "host/hdf5/Column.h"
#include "host/hdf5/Layout.h"
#include "host/language/Phrase.h"
#include "host/store/StoredDevice.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {
namespace {
constexpr const char* NoValue = "-";

store::SampleOrigin ReadOrigin(hid_t group) {
    store::SampleOrigin origin;
    std::istringstream settings(ReadTextAttribute(group, Layout::Settings));
    for (std::string line; std::getline(settings, line);) {
        const std::size_t equals = std::min(line.find('='), line.size());
        origin.Settings.emplace_back(line.substr(0, equals), line.substr(std::min(equals + 1, line.size())));
    }
    if (HasAttribute(group, Layout::FormatLetters))
        origin.FormatLetters = Utf8ToUtf16(ReadTextAttribute(group, Layout::FormatLetters));
    if (HasAttribute(group, Layout::BaseTime)) origin.BaseTime = ReadNumberAttribute(group, Layout::BaseTime);
    origin.IsRelative = ReadTextAttribute(group, Layout::TimeKind) == Layout::Relative;
    origin.IsAutomatic = HasAttribute(group, Layout::Automatic);
    origin.IsCopied = origin.IsAutomatic && ReadTextAttribute(group, Layout::Automatic) == Layout::ByCopy;
    return origin;
}

// What a device and its signals share while they are compared.
struct CheckState : FailureGuard {
    std::optional<store::SampleCheck::Difference> First;  // the earliest
    std::uint64_t Compared = 0;                           // values

    // Keeps a difference unless an earlier one is known; one without a sample comes last.
    void Report(store::SampleCheck::Difference difference) {
        const auto rank = [](const store::SampleCheck::Difference& one) {
            return one.Sample.value_or(~std::uint64_t{0});
        };
        if (!First || rank(difference) < rank(*First)) First = std::move(difference);
    }

    bool IsDecided() const { return First.has_value() || !Failure.empty(); }
};

// The samples of a signal and those of its group.
class SignalCheck final : public store::SignalSink {
  public:
    // The device's group, the description and the state must outlive it. Raises Hdf5Error if the data sets
    // aren't as they should be.
    SignalCheck(hid_t device, const std::string& group, const store::SignalDescription& about,
                CheckState& state)
        : About(about),
          Width(SizeOfKelvarinType(about.Type)),
          IsText(Width == 0),
          State(state),
          Values(device, group + "/" + (IsText ? Layout::Text : Layout::Value), ElementTypeOf(about.Type)) {
        if (IsText) Lengths.emplace(device, group + "/" + Layout::Length, H5T_NATIVE_UINT32);
        const std::string flags = group + "/" + Layout::Valid;
        if (Hdf5Checked(H5Lexists(device, flags.c_str(), H5P_DEFAULT)) > 0)
            Flags.emplace(device, flags, H5T_NATIVE_UINT8);
    }

    void TakeValues(const void* values, std::size_t count, const std::uint8_t* valid) override {
        State.Try([&] {
            const auto* next = static_cast<const std::uint8_t*>(values);
            while (count != 0) {
                const std::span<const std::uint8_t> stored = Values.Next(count);
                if (stored.empty()) return Report(Row, "sample", NoValue, TextOf(next));
                const std::size_t part = stored.size() / Width;
                ComparePart(stored, next, valid, part);
                Row += part;
                State.Compared += part;
                next += stored.size();
                if (valid != nullptr) valid += part;
                count -= part;
            }
        });
    }

    void TakeText(const char16_t* text, std::size_t length) override {
        State.Try([&] {
            const std::optional<std::string> stored = NextText();
            std::optional<std::string> imported;
            if (text != nullptr) imported.emplace(reinterpret_cast<const char*>(text), length * sizeof *text);
            const bool isValid = stored && (!Flags || Flags->Take(1)[0] != 0);
            if (!stored) {
                Report(Row, "sample", NoValue, TextOf(imported));
            } else if (isValid != imported.has_value() || (isValid && *stored != *imported)) {
                Report(Row, "value", isValid ? TextOf(stored) : NoValue, TextOf(imported));
            }
            ++Row;
            ++State.Compared;
        });
    }

    // Called after the last sample: the file must have no more either.
    void Finish() {
        State.Try([&] {
            if (IsText) {
                const std::optional<std::string> more = NextText();
                if (more) return Report(Row, "sample", TextOf(more), NoValue);
            }
            const std::span<const std::uint8_t> more = Values.Next(1);
            if (more.empty()) return;
            if (IsText) throw Hdf5Error(Phrase("its data sets are of different lengths"));
            Report(Row, "sample", TextOf(more.data()), NoValue);
        });
    }

  private:
    void ComparePart(std::span<const std::uint8_t> stored, const std::uint8_t* imported,
                     const std::uint8_t* valid, std::size_t count) {
        if (!Flags && valid == nullptr && std::memcmp(stored.data(), imported, stored.size()) == 0) return;
        const std::vector<std::uint8_t> flags =
            Flags ? Flags->Take(count) : std::vector<std::uint8_t>(count, 1);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint8_t* const ours = stored.data() + i * Width;
            const std::uint8_t* const theirs = imported + i * Width;
            const bool isStored = flags[i] != 0;
            const bool isImported = valid == nullptr || valid[i] != 0;
            if (isStored == isImported && (!isStored || AreEqual(ours, theirs))) continue;
            return Report(Row + i, "value", isStored ? TextOf(ours) : NoValue,
                          isImported ? TextOf(theirs) : NoValue);
        }
    }

    bool AreEqual(const std::uint8_t* stored, const std::uint8_t* imported) const {
        if (About.Type == KelvarinBool) return *stored == (*imported != 0);
        return std::memcmp(stored, imported, Width) == 0;
    }

    // The bytes of the file's next text; nothing at its end.
    std::optional<std::string> NextText() {
        const std::span<const std::uint8_t> bytes = Lengths->Next(1);
        if (bytes.empty()) return std::nullopt;
        std::uint32_t length = 0;
        std::memcpy(&length, bytes.data(), sizeof length);
        const std::vector<std::uint8_t> units = Values.Take(length);
        return std::string(units.begin(), units.end());
    }

    std::string TextOf(const std::uint8_t* value) const { return SampleText(About.Type, value, Width); }
    std::string TextOf(const std::optional<std::string>& bytes) const {
        if (!bytes) return NoValue;
        return SampleText(About.Type, bytes->data(), static_cast<std::uint32_t>(bytes->size()));
    }

    void Report(std::uint64_t sample, const char* what, std::string stored, std::string imported) {
        State.Report({Utf16ToUtf8(About.Symbol), sample, what, std::move(stored), std::move(imported)});
    }

    const store::SignalDescription& About;
    const std::uint32_t Width;  // bytes of a value; 0 for texts
    const bool IsText;
    CheckState& State;
    ColumnReader Values;                  // or the code units of all texts
    std::optional<ColumnReader> Lengths;  // of texts
    std::optional<ColumnReader> Flags;
    std::uint64_t Row = 0;
};

// Compares a device with the one of a group.
class DeviceCheck final : public store::SampleCheck {
  public:
    // Raises Hdf5Error.
    explicit DeviceCheck(Hdf5Handle group)
        : Group(std::move(group)),
          About(ReadOrigin(Group)),
          Names(MemberNames(Group)),
          Times(Group, Layout::Time, H5T_NATIVE_INT64) {
        std::erase(Names, Layout::Time);
    }

    const store::SampleOrigin& Origin() const override { return About; }
    bool HasFailed() const override { return State.IsDecided(); }
    const std::string& Failure() const override { return State.Failure; }
    std::uint64_t Compared() const override { return State.Compared; }

    store::SignalSink* AddSignal(const store::SignalDescription& about) override {
        const std::size_t index = Signals.size();
        Signals.emplace_back();
        if (index >= Names.size()) return nullptr;
        State.Try([&] {
            const std::int64_t type = ReadNumberAttribute(OpenGroup(Group, Names[index]), Layout::Type);
            if (type == about.Type) {
                Signals.back() = std::make_unique<SignalCheck>(Group, Names[index], about, State);
            } else {
                CompareField(Names[index], "type", std::to_string(type), std::to_string(about.Type));
            }
        });
        return Signals.back().get();
    }

    void TakeTime(std::int64_t time) override {
        ReportLife();
        State.Try([&] {
            std::int64_t stored = 0;
            const std::span<const std::uint8_t> bytes = Times.Next(1);
            if (!bytes.empty()) std::memcpy(&stored, bytes.data(), sizeof stored);
            if (bytes.empty() || stored != time)
                State.Report({"", Rows, "time", bytes.empty() ? NoValue : std::to_string(stored),
                              std::to_string(time)});
            ++Rows;
        });
    }

    const Difference* Compare(const store::StoredDevice& device) override {
        if (!State.IsDecided()) {
            for (const auto& signal : Signals) {
                if (signal != nullptr) signal->Finish();
            }
            State.Try([&] {
                if (!Times.Next(1).empty())
                    State.Report({"", Rows, "samples", std::to_string(Times.Count()), std::to_string(Rows)});
                CompareFields(device);
            });
        }
        return State.First ? &*State.First : nullptr;
    }

  private:
    // Reports a difference of something that isn't a sample.
    void CompareField(const std::string& signal, const char* what, const std::string& stored,
                      const std::string& imported) {
        if (stored != imported) State.Report({signal, std::nullopt, what, stored, imported});
    }

    void CompareFields(const store::StoredDevice& device) {
        CompareField("", "name", ReadTextAttribute(Group, Layout::Name), Utf16ToUtf8(device.Name));
        CompareField("", "description", ReadTextAttribute(Group, Layout::Description),
                     Utf16ToUtf8(device.Description));
        CompareField("", "number of signals", std::to_string(Names.size()), std::to_string(Signals.size()));
        for (std::size_t i = 0; i < std::min(Names.size(), Signals.size()); ++i)
            CompareSignal(OpenGroup(Group, Names[i]), device.Signals[i]->Description());
    }

    void CompareSignal(hid_t group, const store::SignalDescription& about) {
        const std::string symbol = Utf16ToUtf8(about.Symbol);
        const auto compareText = [&](const char* attribute, const std::string& imported) {
            const bool isThere = HasAttribute(group, attribute);
            CompareField(symbol, attribute, isThere ? ReadTextAttribute(group, attribute) : "", imported);
        };
        compareText(Layout::Name, Utf16ToUtf8(about.Name));
        compareText(Layout::Symbol, symbol);
        compareText(Layout::Unit, Utf16ToUtf8(about.Unit));
        CompareField(symbol, Layout::Column, std::to_string(ReadNumberAttribute(group, Layout::Column)),
                     std::to_string(about.Column));
        compareText(Layout::MetaData, JoinLines(about.MetaData));
    }

    const Hdf5Handle Group;
    const store::SampleOrigin About;
    CheckState State;
    std::vector<std::string> Names;  // of the groups of the file's signals
    ColumnReader Times;
    std::uint64_t Rows = 0;
    std::vector<std::unique_ptr<SignalCheck>> Signals;  // null: not in the file, or of another type
};

// A finished file.
class Hdf5Archive final : public store::SampleArchive {
  public:
    explicit Hdf5Archive(const std::string& path)
        : File(H5Fopen(path.c_str(), H5F_ACC_RDONLY, MakeFileAccess())) {
        if (!HasAttribute(File, Layout::Format) ||
            ReadTextAttribute(File, Layout::Format) != Layout::FormatName)
            throw Hdf5Error(Phrase("it has no samples of an import"));
        const std::int64_t version = ReadNumberAttribute(File, Layout::Version);
        if (version != Layout::KnownVersion)
            throw Hdf5Error(
                Phrase("its format is of version {}, known is {}", version, Layout::KnownVersion));
    }

    std::unique_ptr<store::SampleCheck> FindDevice(const std::string& name, std::size_t n,
                                                   std::string& complaint) override {
        std::unique_ptr<store::SampleCheck> found;
        complaint = FailureOf([&] {
            std::string known;
            for (const std::string& member : MemberNames(File)) {
                Hdf5Handle group = OpenGroup(File, member);
                const std::string held = ReadTextAttribute(group, Layout::Name);
                if (held == name && n-- == 0) {
                    found = std::make_unique<DeviceCheck>(std::move(group));
                    return;
                }
                known += (known.empty() ? "'" : ", '") + held + "'";
            }
            throw Hdf5Error(Phrase("it has no device '{}'; it has {}", name, known));
        });
        return found;
    }

  private:
    Hdf5Handle File;
};
}  // namespace
}  // namespace kelvarin::hdf5

std::unique_ptr<kelvarin::store::SampleArchive> kelvarin::store::OpenSampleFile(const std::string& path,
                                                                                std::string& complaint) {
    std::unique_ptr<SampleArchive> archive;
    complaint = hdf5::FailureOf([&] {
        // A pipe would be waited for, and a device might not end.
        std::error_code ignored;
        if (std::filesystem::exists(path, ignored) && !std::filesystem::is_regular_file(path, ignored))
            throw hdf5::Hdf5Error(Phrase("not a regular file"));
        hdf5::BeginHdf5();
        archive = std::make_unique<hdf5::Hdf5Archive>(path);
    });
    return archive;
}
