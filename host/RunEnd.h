// Where a run has ended, for another one that goes on behind it once the file has grown.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"
#include "contract/RangeReading.h"
#include "host/MessageList.h"
#include "host/SettingText.h"
#include "host/plan/RunGuide.h"
#include "host/store/StoredDevice.h"

namespace kelvarin {
// What decides how the lines of a file are read: runs that begin alike read the same lines alike.
struct RunBegin {
    SettingList Settings;
    std::u16string FormatLetters;
    RunState State;                                       // before the first line
    std::vector<std::pair<int, std::u16string>> Columns;  // types and names
    std::vector<store::SignalDescription> Signals;
    std::vector<std::u16string> Said;        // messages
    std::optional<plan::GuideTraits> Guide;  // nothing without a guide

    bool operator==(const RunBegin&) const = default;
};

// Of a run whose filter has analysed the file and made the signals of the device. Nothing if no other run
// can begin alike.
std::optional<RunBegin> BeginOf(const CImportFilter& filter, const store::StoredDevice& device,
                                const plan::RunGuide* guide, const MessageList& messages);

// The first bytes of a file and those before a place, by which it is known again.
struct KnownBytes {
    std::string First, Last;

    bool operator==(const KnownBytes&) const = default;
};

// Of at most 4 KiB each; empty if the file can't be read up to `end`.
KnownBytes BytesBefore(const std::u16string& path, std::uint64_t end);

struct RunEnd {
    RunBegin Begin;
    RunState State;    // behind the last line
    KnownBytes Bytes;  // before it
    std::shared_ptr<store::StoredDevice> Device;
    MessageList Messages;
    std::uint64_t Lines = 0;  // as of RunResult, as the next
    std::string Failure;
    plan::RunLosses Losses;
};

// The last place in a file, from `from` on, at which a line starts, which may be its end; `from`, where one
// starts, if there is no other or the file can't be read.
std::uint64_t LastLineStart(IRangeReading& reading, std::uint64_t from, std::uint64_t size);
}  // namespace kelvarin
