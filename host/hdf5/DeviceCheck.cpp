#include "host/hdf5/DeviceCheck.h"

#include <algorithm>
#include <cstring>

#include "host/hdf5/Attributes.h"
#include "host/hdf5/ElementTypes.h"
#include "host/hdf5/GroupNames.h"
#include "host/hdf5/Layout.h"
#include "host/store/StoredDevice.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {

namespace {

Hdf5Handle OpenGroup(hid_t parent, const std::string& name) {
    return Hdf5Handle(H5Gopen2(parent, name.c_str(), H5P_DEFAULT));
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

store::SampleOrigin ReadOrigin(hid_t group) {
    store::SampleOrigin origin;
    origin.Settings = LinesOf(ReadTextAttribute(group, Layout::Settings));
    if (HasAttribute(group, Layout::BaseTime)) origin.BaseTime = ReadNumberAttribute(group, Layout::BaseTime);
    origin.IsRelative = ReadTextAttribute(group, Layout::TimeKind) == Layout::Relative;
    return origin;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    return text;
}

}  // namespace

DeviceCheck::DeviceCheck(Hdf5Handle group)
    : Group(std::move(group)),
      About(ReadOrigin(Group)),
      Names(MemberNames(Group)),
      Times(Group, Layout::Time, ElementOf<std::int64_t>()) {
    std::erase(Names, Layout::Time);
}

store::SignalSink* DeviceCheck::AddSignal(const store::SignalDescription& about) {
    const std::size_t index = Signals.size();
    Signals.emplace_back();
    if (index >= Names.size()) return nullptr;
    State.Try([&] {
        const Hdf5Handle signal = OpenGroup(Group, Names[index]);
        const std::int64_t type = ReadNumberAttribute(signal, Layout::Type);
        if (type == about.Type) {
            Signals.back() = MakeSignalCheck({Group, Names[index]}, about, State);
        } else {
            CompareField(Names[index], "type", std::to_string(type), std::to_string(about.Type));
        }
    });
    return Signals.back().get();
}

void DeviceCheck::TakeTime(std::int64_t time) {
    State.Try([&] {
        std::int64_t stored = 0;
        const std::span<const std::uint8_t> bytes = Times.Next(1);
        if (!bytes.empty()) std::memcpy(&stored, bytes.data(), sizeof stored);
        if (bytes.empty() || stored != time)
            State.Report(
                {"", Rows, "time", bytes.empty() ? "-" : std::to_string(stored), std::to_string(time)});
        ++Rows;
    });
}

const store::SampleCheck::Difference* DeviceCheck::Compare(const store::StoredDevice& device) {
    if (!State.IsDecided()) {
        for (const auto& signal : Signals) {
            if (signal != nullptr) signal->Finish();
        }
        State.Try([&] {
            if (!Times.Next(1).empty())
                State.Report({"", Rows, "samples", std::to_string(Times.Count()), std::to_string(Rows)});
        });
        State.Try([&] { CompareTexts(device); });
    }
    return State.First ? &*State.First : nullptr;
}

void DeviceCheck::CompareField(const std::string& signal, const char* what, const std::string& stored,
                               const std::string& imported) {
    if (stored != imported) State.Report({signal, std::nullopt, what, stored, imported});
}

void DeviceCheck::CompareTexts(const store::StoredDevice& device) {
    CompareField("", "name", ReadTextAttribute(Group, Layout::Name), Utf16ToUtf8(device.Name));
    CompareField("", "description", ReadTextAttribute(Group, Layout::Description),
                 Utf16ToUtf8(device.Description));
    CompareField("", "number of signals", std::to_string(Names.size()), std::to_string(Signals.size()));
    for (std::size_t i = 0; i < std::min(Names.size(), Signals.size()); ++i) {
        const store::SignalDescription& about = device.Signals[i]->Description();
        const std::string symbol = Utf16ToUtf8(about.Symbol);
        const Hdf5Handle signal = OpenGroup(Group, Names[i]);
        const auto text = [&](const char* name) {
            return HasAttribute(signal, name) ? ReadTextAttribute(signal, name) : std::string();
        };
        CompareField(symbol, "name", text(Layout::Name), Utf16ToUtf8(about.Name));
        CompareField(symbol, "symbol", text(Layout::Symbol), symbol);
        CompareField(symbol, "unit", text(Layout::Unit), Utf16ToUtf8(about.Unit));
        CompareField(symbol, "column", std::to_string(ReadNumberAttribute(signal, Layout::Column)),
                     std::to_string(ColumnOf(about)));
        CompareField(symbol, "metadata", text(Layout::MetaData), Joined(about.MetaData));
    }
}

}  // namespace kelvarin::hdf5
