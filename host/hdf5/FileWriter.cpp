// Writes a file of samples.
#include <algorithm>
#include <bit>
#include <limits>
#include <memory>

#include "host/hdf5/Column.h"
#include "host/hdf5/Layout.h"
#include "host/language/Phrase.h"
#include "host/store/StoredDevice.h"
#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {
namespace {
constexpr const char* UnfinishedName = ".unfinished";

// Samples of a chunk: as many as the chunks of all signals have room for together, so that memory has a
// bound, but not so many that reading a few samples means unpacking megabytes.
std::size_t ChunkValuesFor(std::size_t signals) {
    constexpr std::size_t MostMemory = 64 << 20;
    constexpr std::size_t Smallest = 128;
    constexpr std::size_t Largest = 32 << 10;
    const std::size_t room = MostMemory / (sizeof(std::int64_t) * (signals + 1));
    return std::clamp(std::bit_floor(room), Smallest, Largest);
}

// What a device and its signals share while they are written.
struct DeviceState : FailureGuard {
    DatasetPlace Place;
};

// The data sets of one signal.
class SignalWriter final : public store::SignalSink {
  public:
    // For the values of a type code. The state must outlive it.
    SignalWriter(std::uint32_t type, DeviceState& state)
        : Type(type),
          IsText(SizeOfKelvarinType(type) == 0),
          State(state),
          Values(state.Place, ElementTypeOf(type),
                 IsText ? ColumnWriter::ValuesOfTexts : ColumnWriter::Values),
          Lengths(state.Place, H5T_NATIVE_UINT32),
          Flags(state.Place, H5T_NATIVE_UINT8, ColumnWriter::Flags) {}

    void TakeValues(const void* values, std::size_t count, const std::uint8_t* valid) override {
        State.Try([&] {
            Values.Append(Presentable(values, count, valid), count);
            Flags.Append(valid, count);
        });
    }

    void TakeText(const char16_t* text, std::size_t length) override {
        State.Try([&] {
            constexpr std::uint8_t IsMissing = 0;
            const auto known = static_cast<std::uint32_t>(text == nullptr ? 0 : length);
            Lengths.Append(&known, 1);
            Values.Append(text, known);
            Flags.Append(text == nullptr ? &IsMissing : nullptr, 1);
        });
    }

    // Writes the rest and moves the data sets into the signal's group.
    void Finish(hid_t group) {
        Values.Finish(group, IsText ? Layout::Text : Layout::Value);
        if (IsText) Lengths.Finish(group, Layout::Length);
        Flags.Finish(group, Layout::Valid);
    }

    // Samples so far.
    std::uint64_t Count() const { return IsText ? Lengths.Count() : Values.Count(); }

  private:
    // The values as the file has them: truth is 1, and a missing real number is not a number, so that sums
    // and plots of careless readers show it.
    const void* Presentable(const void* values, std::size_t count, const std::uint8_t* valid) {
        if (Type == KelvarinBool) {
            const auto* const truths = static_cast<const std::uint8_t*>(values);
            Truths.resize(count);
            std::transform(truths, truths + count, Truths.begin(), [](auto value) { return value != 0; });
            return Truths.data();
        }
        if (Type != KelvarinDouble || valid == nullptr) return values;
        const auto* const numbers = static_cast<const double*>(values);
        Numbers.assign(numbers, numbers + count);
        for (std::size_t i = 0; i < count; ++i) {
            if (valid[i] == 0) Numbers[i] = std::numeric_limits<double>::quiet_NaN();
        }
        return Numbers.data();
    }

    const std::uint32_t Type;
    const bool IsText;
    DeviceState& State;
    ColumnWriter Values;   // or the code units of all texts
    ColumnWriter Lengths;  // of texts
    ColumnWriter Flags;
    std::vector<double> Numbers;
    std::vector<std::uint8_t> Truths;
};

// Writes the samples of all signals and the times that they share; Keep then makes a group of them.
class DeviceWriter final : public store::DeviceSink {
  public:
    // The file and the packer must outlive it.
    DeviceWriter(hid_t file, ChunkPacker& packer)
        : File(file), State{{}, {H5I_INVALID_HID, packer}}, Times(State.Place, H5T_NATIVE_INT64) {
        State.Try([&] { Unfinished = MakeGroup(File, UnfinishedName); });
        State.Place.Group = Unfinished;
    }

    ~DeviceWriter() override {
        // With all that is still in it. If the file can't be written any more, that was reported before.
        H5Ldelete(File, UnfinishedName, H5P_DEFAULT);
    }

    store::SignalSink* AddSignal(const store::SignalDescription& about) override {
        Signals.push_back(std::make_unique<SignalWriter>(about.Type, State));
        return Signals.back().get();
    }

    void TakeTime(std::int64_t time) override {
        constexpr std::size_t TimesAtOnce = 64;
        if (State.Place.ChunkValues == 0) State.Place.ChunkValues = ChunkValuesFor(Signals.size());
        NewTimes.push_back(time);
        if (NewTimes.size() == TimesAtOnce) FlushTimes();
    }

    bool HasFailed() const override { return !State.Failure.empty(); }

    // Makes the device's group under the root. Empty, or why the file can't be written.
    std::string Keep(const store::StoredDevice& device, const store::SampleOrigin& origin) {
        FlushTimes();
        State.Try([&] {
            for (const auto& signal : Signals) {
                if (signal->Count() != Times.Count())
                    throw Hdf5Error(Phrase("signals with times of their own can't be kept in this file"));
            }
            WriteGroup(device, origin);
        });
        return State.Failure;
    }

  private:
    void WriteGroup(const store::StoredDevice& device, const store::SampleOrigin& origin) {
        const std::string name = Utf16ToUtf8(device.Name);
        const Hdf5Handle group = MakeGroup(File, GroupNames(File).Add(name));
        WriteAttribute(group, Layout::Name, name);
        WriteAttribute(group, Layout::Description, Utf16ToUtf8(device.Description));
        WriteAttribute(group, Layout::SourceSize, static_cast<std::int64_t>(origin.SourceSize));
        WriteAttribute(group, Layout::SourceModified, origin.SourceModified);
        std::vector<std::string> settings;
        for (const auto& [key, value] : origin.Settings) settings.push_back(key + "=" + value);
        WriteAttribute(group, Layout::Settings, JoinLines(settings));
        if (!origin.FormatLetters.empty())
            WriteAttribute(group, Layout::FormatLetters, Utf16ToUtf8(origin.FormatLetters));
        WriteAttribute(group, Layout::TimeKind, origin.IsRelative ? Layout::Relative : Layout::Absolute);
        if (origin.BaseTime) WriteAttribute(group, Layout::BaseTime, *origin.BaseTime);
        if (origin.IsAutomatic)
            WriteAttribute(group, Layout::Automatic, origin.IsCopied ? Layout::ByCopy : Layout::Directly);

        Times.Finish(group, Layout::Time);
        const Hdf5Handle times(H5Dopen2(group, Layout::Time, H5P_DEFAULT));
        WriteAttribute(times, Layout::Unit, "ns");
        WriteAttribute(times, Layout::Epoch, Layout::EpochText);
        GroupNames names(group);
        for (std::size_t i = 0; i < Signals.size(); ++i)
            WriteSignal(group, names, device.Signals[i]->Description(), *Signals[i]);
    }

    static void WriteSignal(hid_t device, GroupNames& names, const store::SignalDescription& about,
                            SignalWriter& samples) {
        const std::string symbol = Utf16ToUtf8(about.Symbol);
        const Hdf5Handle group = MakeGroup(device, names.Add(symbol));
        WriteAttribute(group, Layout::Name, Utf16ToUtf8(about.Name));
        WriteAttribute(group, Layout::Symbol, symbol);
        WriteAttribute(group, Layout::Unit, Utf16ToUtf8(about.Unit));
        WriteAttribute(group, Layout::Column, std::int64_t{about.Column});
        WriteAttribute(group, Layout::Type, std::int64_t{about.Type});
        if (!about.MetaData.empty()) WriteAttribute(group, Layout::MetaData, JoinLines(about.MetaData));
        Hdf5Checked(H5Lcreate_hard(device, Layout::Time, group, Layout::Time, H5P_DEFAULT, H5P_DEFAULT));
        samples.Finish(group);
    }

    void FlushTimes() {
        State.Try([&] { Times.Append(NewTimes.data(), NewTimes.size()); });
        NewTimes.clear();
    }

    const hid_t File;
    Hdf5Handle Unfinished;  // the group of data sets without a place
    DeviceState State;
    ColumnWriter Times;
    std::vector<std::int64_t> NewTimes;  // not in Times yet
    std::vector<std::unique_ptr<SignalWriter>> Signals;
};

// Does a step of the file's replacement. Raises Hdf5Error.
template <class Step>
auto OrHdf5Error(Step step) {
    try {
        return step();
    } catch (CFileException* error) {
        const bool isBusy = error->Cause == CFileException::sharingViolation;
        const std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        throw Hdf5Error(isBusy ? Phrase("another run is just writing it") : reason);
    }
}

Hdf5Handle CreateFile(const std::string& path) {
    // Nodes of the lists of chunks take ten times their size in memory.
    constexpr unsigned ChunksPerHalfNode = 8;
    const Hdf5Handle access = MakeFileAccess();
    // The oldest format that lists groups in the order of their making.
    Hdf5Checked(H5Pset_libver_bounds(access, H5F_LIBVER_V18, H5F_LIBVER_LATEST));
    const Hdf5Handle creation(H5Pcreate(H5P_FILE_CREATE));
    Hdf5Checked(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    Hdf5Checked(H5Pset_istore_k(creation, ChunksPerHalfNode));
    Hdf5Handle file(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, creation, access));
    WriteAttribute(file, Layout::Format, Layout::FormatName);
    WriteAttribute(file, Layout::Version, Layout::KnownVersion);
    WriteAttribute(file, Layout::Writer, "kelvarin-import " KELVARIN_VERSION);
    return file;
}

// A file while it is written.
class Hdf5File final : public store::SampleFile {
  public:
    explicit Hdf5File(const std::string& path)
        : Replacing(OrHdf5Error([&] {
              return std::make_unique<ReplacingFile>(PathFromNative(path), ReplacingFile::Writers::One);
          })),
          File(CreateFile(Replacing->PathForLibrary())) {}

    store::DeviceSink& BeginDevice() override {
        Device = std::make_unique<DeviceWriter>(File, Packer);
        return *Device;
    }

    std::string KeepDevice(const store::StoredDevice& device, const store::SampleOrigin& origin) override {
        const std::string failure = Device->Keep(device, origin);
        Device.reset();
        return failure;
    }

    void DropDevice() override { Device.reset(); }

    std::string Finish() override {
        DropDevice();
        return FailureOf([&] {
            File.Close();
            OrHdf5Error([&] { Replacing->Finish(); });
        });
    }

  private:
    const std::unique_ptr<ReplacingFile> Replacing;
    ChunkPacker Packer;
    Hdf5Handle File;
    std::unique_ptr<DeviceWriter> Device;
};
}  // namespace
}  // namespace kelvarin::hdf5

bool kelvarin::store::HasSampleFiles() {
    return true;
}

std::unique_ptr<kelvarin::store::SampleFile> kelvarin::store::CreateSampleFile(const std::string& path,
                                                                               std::string& complaint) {
    std::unique_ptr<SampleFile> file;
    complaint = hdf5::FailureOf([&] {
        hdf5::BeginHdf5();
        file = std::make_unique<hdf5::Hdf5File>(path);
    });
    return file;
}
