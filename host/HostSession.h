// One filter driven in the host's order, from its making to its end, and the messages it gave.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"
#include "contract/RunObserver.h"
#include "host/MessageList.h"
#include "host/ModuleLoader.h"
#include "host/RunEnd.h"
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
    std::function<void()> OnGrown;  // called within Run every few rows, when the device may be looked at; may
                                    // be empty
    store::JoinedDevice* Joined = nullptr;      // takes the samples in place of a device of the run's own
    store::DeviceSink* Sink = nullptr;          // gets every sample; the run ends when it has failed
    IRunObserver* Observer = nullptr;           // hears what becomes of each row, if the filter can say it
    const std::atomic<bool>* Cancel = nullptr;  // any thread sets it to end the run before the next line
    std::size_t Threads = 1;                    // at most, for a large file whose filter can read ranges
    ranges::RangeSizes Sizes;                   // of such a file
    plan::AutomaticReading* Reading = nullptr;  // says which file is read in place of the session's, and how
    bool NotesEnd = false;                      // for End
    bool WholeLines = false;        // a last line without an end, which may still be written, isn't read
    const RunEnd* After = nullptr;  // the run goes on behind an earlier one, with its device
};

struct RunResult {
    bool Begun = false;                   // what BeginImport returned
    bool Failed = false;                  // it could not begin, or a read error ended it
    bool Interrupted = false;             // Cancel ended it
    bool IsUnlike = false;                // it can't go on behind RunOptions::After, and has read nothing
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

    // BeginImport, ImportNextLine until it ends, EndImport. Once only. Messages and lines of a run that goes
    // on behind another one are those of both.
    RunResult Run();

    // After Run with RunOptions::NotesEnd: where it ended. Nothing if no run can go on there: it failed or
    // was interrupted, not all of its samples are in a device of its own, it read a copy, or its last line
    // may still be written.
    std::optional<RunEnd> End() const;

    const MessageList& Messages() const { return AllMessages; }

    // The device of the run, or null if the filter made none. Lives as long as the session, or the joined
    // one.
    const store::StoredDevice* Device() const {
        return Options.Joined == nullptr ? Store.get() : Options.Joined->Device();
    }

    // Hands the device of the run over, which lives on without the session; null if there is none of its own.
    // Nothing else is asked of the session afterwards.
    std::shared_ptr<store::StoredDevice> TakeDevice() { return std::move(Store); }

    // The same while the session goes on with it.
    std::shared_ptr<const store::StoredDevice> ShareDevice() const { return Store; }

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

    // True if the run begins as the one before it, behind which it then is.
    bool GoOn(RunResult& result);
    void NoteEnd(const RunResult& result);
    plan::RunGuide* Guide() const;
    std::uint64_t SizeOfFile() const;  // 0 if it isn't known

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
    std::optional<RunBegin> Begin;               // of a run that another one may go on behind
    std::optional<std::uint64_t> StopAt;         // where its lines end, in bytes; nothing for all
    std::optional<RunState> Last;                // behind its last line
    std::string LastFailure;                     // up to there, as the next
    std::uint64_t LinesRead = 0;                 // up to there
    std::shared_ptr<store::StoredDevice> Store;  // outlives the filter's use of its signals
    std::unique_ptr<CImportFilter> ImportFilter;
};
}  // namespace kelvarin
