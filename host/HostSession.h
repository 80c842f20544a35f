// One filter driven in the host's order, from its making to its end, and the messages it gave.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"
#include "contract/RunObserver.h"
#include "host/ModuleLoader.h"
#include "host/ranges/RangeSizes.h"
#include "host/store/JoinedDevice.h"
#include "host/store/StoredDevice.h"

namespace kelvarin {
namespace plan {
class AutomaticReading;
}
namespace ranges {
struct RangeResult;
}

// Messages of one kind: about the cells of one column, or alike but for their numbers.
struct MessageGroup {
    std::u16string FirstText;
    std::vector<std::uint64_t> Lines;  // of the first 100 messages, from 1; 0 for one outside the run
    std::uint64_t Count = 0;
    bool Failure = false;
};

// A message that isn't kept costs a look-up and no memory, so that a file may fail in every row.
class MessageList {
  public:
    // Keeps at most the first `keep` messages.
    explicit MessageList(std::size_t keep) : Keep(keep) {}

    // `line` is the line of the file that was being read, 0 before the run.
    void Add(ImportMessage message, std::uint64_t line);

    // In the order of each kind's first message.
    const std::vector<MessageGroup>& Groups() const { return AllGroups; }

    // The messages that were kept, in order, and the number of those that came after them.
    const std::vector<ImportMessage>& Kept() const { return First; }
    const std::vector<std::uint64_t>& KeptLines() const { return FirstLines; }  // of these, as Add got them
    std::uint64_t LeftOut() const { return Count - First.size(); }

    bool IsEmpty() const { return Count == 0; }

  private:
    struct KindOrder {
        bool operator()(const ImportMessage& one, const ImportMessage& other) const;
    };

    const std::size_t Keep;
    std::uint64_t Count = 0;
    std::vector<MessageGroup> AllGroups;
    std::map<ImportMessage, std::size_t, KindOrder> GroupOfKind;  // index by a message of the kind
    std::vector<ImportMessage> First;
    std::vector<std::uint64_t> FirstLines;
};

// A number of samples or messages that no file reaches.
constexpr std::size_t KeepAll = std::numeric_limits<std::size_t>::max();

// A number of lines that no file has.
constexpr std::uint64_t AllLines = std::numeric_limits<std::uint64_t>::max();

// What a host wants of a run. Pointers are borrowed for the life of the session.
struct RunOptions {
    std::optional<std::int64_t> BaseTime;               // start of relative time in ns; none: the fixed epoch
    std::size_t KeepSamples = 0;                        // of each signal, in memory
    std::size_t KeepMessages = 0;                       // with their texts; the groups count all
    std::uint64_t MostLines = AllLines;                 // the run ends after so many
    std::function<void(const CImportFilter&)> OnBegun;  // gets the filter before the first line; may be empty
    std::function<void(std::uint32_t)> OnProgress;      // gets each new percentage, within Run; may be empty
    store::JoinedDevice* Joined = nullptr;      // takes the samples in place of a device of the run's own
    store::DeviceSink* Sink = nullptr;          // gets every sample; the run ends when it has failed
    IRunObserver* Observer = nullptr;           // hears what becomes of each row, if the filter can say it
    const std::atomic<bool>* Cancel = nullptr;  // any thread sets it to end the run before the next line
    std::size_t Threads = 1;                    // at most, for a large file whose filter can read ranges
    ranges::RangeSizes Sizes;                   // of such a file
    plan::AutomaticReading* Reading = nullptr;  // says which file is read in place of the session's, and how
};

struct RunResult {
    bool Begun = false;                   // what BeginImport returned
    bool Failed = false;                  // it could not begin, or a read error ended it
    bool Interrupted = false;             // Cancel ended it
    bool OutOfMemory = false;             // it failed, as a line or its table is too large for this process
    std::uint64_t Lines = 0;              // calls of ImportNextLine that returned true
    std::uint64_t RepeatedRanges = 0;     // of a file that was read in ranges
    std::vector<std::uint32_t> Progress;  // percentages as they changed
    std::string Failure;  // the last failure in one sentence, in UTF-8; not empty if it failed
};

// Makes a filter for one file, lends it the host's objects and drives it; owns the filter and the device. All
// calls come from one thread. With several threads the functions of the options are called on any of them,
// one at a time.
class HostSession : private IDeviceHost, private IRelativeTimeContext {
  public:
    HostSession(const ModuleLoader& module, const std::u16string& path, RunOptions options);

    // For analyses and dialogs, before the run or instead of it. What it has in store after the run is valid
    // too.
    CImportFilter& Filter() { return *ImportFilter; }
    const CImportFilter& Filter() const { return *ImportFilter; }

    // BeginImport, ImportNextLine until it ends, EndImport. Once only.
    RunResult Run();

    const MessageList& Messages() const { return AllMessages; }

    // The device of the run, or null if the filter made none. Lives as long as the session, or the joined
    // one.
    const store::StoredDevice* Device() const {
        return Options.Joined == nullptr ? Store.get() : Options.Joined->Device();
    }

    // Hands the device of the run over, which lives on without the session; null if there is none of its own.
    // Nothing else is asked of the session afterwards.
    std::unique_ptr<store::StoredDevice> TakeDevice() { return std::move(Store); }

    // Where its samples come from: the file as it is now, and the settings of the run.
    store::SampleOrigin Origin() const;

  private:
    CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) override;
    void FinishDevice(CDevice* device) override;
    std::int64_t GetBaseTime() override { return Options.BaseTime.value_or(0); }
    bool QueryFixedBaseB() override { return false; }
    bool QueryFixedBaseA() override { return !Options.BaseTime.has_value(); }

    // Takes the filter's messages; true if one of them is a failure, whose text the result then has.
    bool CollectMessages(std::uint64_t line, RunResult& result);
    void BeginAndRead(RunResult& result);

    // Reads up to so many lines in all; false if the run has ended before.
    bool ReadLines(RunResult& result, std::uint64_t mostLines);

    // Reads a large file in ranges, if that can be done. False: there are lines left.
    bool ReadRanges(RunResult& result);
    bool CanReadRanges() const;
    // False: the sink has failed.
    bool TakeRange(ranges::RangeResult& range, RunResult& result);
    void AddMessage(ImportMessage message, std::uint64_t line, RunResult& result);
    void NoteProgress(std::uint32_t progress, RunResult& result) const;

    // The line of the session's file for a line of the one that is read.
    std::uint64_t SourceLine(std::uint64_t line) const;

    const std::u16string Source;
    const RunOptions Options;
    const ModuleLoader& Module;
    MessageList AllMessages;
    std::uint64_t FirstDataLine = 0;             // of the run
    std::unique_ptr<store::StoredDevice> Store;  // outlives the filter's use of its signals
    std::unique_ptr<CImportFilter> ImportFilter;
};
}  // namespace kelvarin
