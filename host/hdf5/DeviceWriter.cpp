#include "host/hdf5/DeviceWriter.h"

#include <algorithm>
#include <bit>

#include "host/hdf5/Attributes.h"
#include "host/hdf5/ElementTypes.h"
#include "host/hdf5/GroupNames.h"
#include "host/hdf5/Layout.h"
#include "host/language/Phrase.h"
#include "host/store/StoredDevice.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {

namespace {

constexpr std::size_t TimesAtOnce = 64;
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

// A new group whose members are listed in the order of their making.
Hdf5Handle MakeGroup(hid_t parent, const std::string& name) {
    const Hdf5Handle creation(H5Pcreate(H5P_GROUP_CREATE));
    Hdf5Checked(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    const Hdf5Handle link(H5Pcreate(H5P_LINK_CREATE));
    Hdf5Checked(H5Pset_char_encoding(link, H5T_CSET_UTF8));
    return Hdf5Handle(H5Gcreate2(parent, name.c_str(), link, creation, H5P_DEFAULT));
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    return text;
}

void WriteSignalAttributes(hid_t group, const store::SignalDescription& about) {
    WriteAttribute(group, Layout::Name, Utf16ToUtf8(about.Name));
    WriteAttribute(group, Layout::Symbol, Utf16ToUtf8(about.Symbol));
    WriteAttribute(group, Layout::Unit, Utf16ToUtf8(about.Unit));
    WriteAttribute(group, Layout::Column, ColumnOf(about));
    WriteAttribute(group, Layout::Type, std::int64_t{about.Type});
    if (!about.MetaData.empty()) WriteAttribute(group, Layout::MetaData, Joined(about.MetaData));
}

}  // namespace

DeviceWriter::DeviceWriter(hid_t file, ChunkPacker& packer)
    : File(file), State{{H5I_INVALID_HID, packer}, 0, {}}, Times(State.Place, ElementOf<std::int64_t>()) {
    State.Try([&] { Unfinished = MakeGroup(File, UnfinishedName); });
    State.Place.Group = Unfinished;
}

DeviceWriter::~DeviceWriter() {
    // With all that is still in it. If the file can't be written any more, that isn't news.
    H5Ldelete(File, UnfinishedName, H5P_DEFAULT);
}

store::SignalSink* DeviceWriter::AddSignal(const store::SignalDescription& about) {
    Signals.push_back(MakeSignalWriter(about.Type, State));
    return Signals.back().get();
}

void DeviceWriter::TakeTime(std::int64_t time) {
    if (State.ChunkValues == 0) State.ChunkValues = ChunkValuesFor(Signals.size());
    NewTimes.push_back(time);
    if (NewTimes.size() == TimesAtOnce) FlushTimes();
}

void DeviceWriter::FlushTimes() {
    State.Try([&] { Times.Append(NewTimes.data(), NewTimes.size(), State.ChunkValues); });
    NewTimes.clear();
}

bool DeviceWriter::Keep(const store::StoredDevice& device, const store::SampleOrigin& origin) {
    FlushTimes();
    for (const auto& signal : Signals) {
        if (signal->Count() != Times.Count() && State.Failure.empty())
            State.Failure = Phrase("signals with times of their own can't be kept in this file");
    }
    State.Try([&] { WriteGroup(device, origin); });
    return !HasFailed();
}

void DeviceWriter::WriteGroup(const store::StoredDevice& device, const store::SampleOrigin& origin) {
    const std::string name = Utf16ToUtf8(device.Name);
    GroupNames names(File);
    const Hdf5Handle group = MakeGroup(File, names.Add(name));
    WriteAttribute(group, Layout::Name, name);
    WriteAttribute(group, Layout::Description, Utf16ToUtf8(device.Description));
    WriteAttribute(group, Layout::SourceSize, static_cast<std::int64_t>(origin.SourceSize));
    WriteAttribute(group, Layout::SourceModified, origin.SourceModified);
    WriteAttribute(group, Layout::Settings, Joined(origin.Settings));
    WriteAttribute(group, Layout::TimeKind, origin.IsRelative ? Layout::Relative : Layout::Absolute);
    if (origin.BaseTime) WriteAttribute(group, Layout::BaseTime, *origin.BaseTime);

    Times.Finish(group, Layout::Time);
    const Hdf5Handle times(H5Dopen2(group, Layout::Time, H5P_DEFAULT));
    WriteAttribute(times, Layout::Unit, "ns");
    WriteAttribute(times, Layout::Epoch, Layout::EpochText);
    WriteSignals(group, device);
}

void DeviceWriter::WriteSignals(hid_t group, const store::StoredDevice& device) {
    GroupNames names(group);
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        const store::SignalDescription& about = device.Signals[i]->Description();
        const Hdf5Handle signal = MakeGroup(group, names.Add(Utf16ToUtf8(about.Symbol)));
        WriteSignalAttributes(signal, about);
        Hdf5Checked(H5Lcreate_hard(group, Layout::Time, signal, Layout::Time, H5P_DEFAULT, H5P_DEFAULT));
        Signals[i]->Finish(signal);
    }
}

}  // namespace kelvarin::hdf5
