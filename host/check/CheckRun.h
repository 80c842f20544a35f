// A whole file through the module, with nothing kept but what a check reports.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/RunObserver.h"
#include "host/HostSession.h"
#include "host/ModuleLoader.h"
#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/check/DroppedRows.h"
#include "host/check/FilePlaces.h"
#include "host/check/RejectsFile.h"
#include "host/check/TimeSeries.h"
#include "platform/framework/FileWatch.h"

namespace kelvarin::plan {
class AutomaticReading;
}

namespace kelvarin::check {
// The lines, from 1, from the first row of the table that a plan finds to the table that was read; First is 0
// if that table begins no lower.
struct RowsAbove {
    std::uint64_t First = 0, Last = 0;
    SettingList Settings = {};  // that read the table of the plan; empty if none do
};

// A column that became a signal.
struct ColumnCheck {
    int Column = 0;  // 1-based
    std::u16string Name;
    ECsvDataType Type = CsvTypeUndefined;
    std::uint64_t Samples = 0;
    std::uint64_t Empty = 0;  // samples without value whose cell was empty or not there
    FilePlaces Refused;       // cells that are not of the column's type, as the module's parser left them
};

// A value of its own: nothing in it refers to the filter. Lines are those of the file, from 1; times are
// nanoseconds on the scale of CTimeStamp, under relative time from RelativeTimeEpoch on.
struct CheckResult {
    bool Begun = false;
    bool Failed = false;         // could not begin, or a read error ended it
    bool SourceChanged = false;  // Failed, as the file isn't what it was
    bool OutOfMemory = false;    // Failed, as a line or the table is too large for this process
    bool Interrupted = false;    // was cancelled; all below is of the lines read so far
    std::u16string Failure;      // the module's message about the file or its sidecar; empty without one
    std::string WhyUnreadable;   // of a run that failed, as the function of this name says it

    Reading Format;
    std::u16string Letters;  // of a timestamp format, see ITimeReader::FormatLetters

    std::uint64_t Lines = 0;       // read from the first data line on
    std::uint64_t BlankLines = 0;  // of these, all
    FilePlaces Blank;              // of these, with rows below them; the module doesn't count them
    FilePlaces Before1990;         // rows with an absolute time that not every host can process
    std::vector<ColumnCheck> Columns;
    DroppedRows Dropped;
    FilePlaces LeftOut;                  // lines without a time that a clean copy read in place doesn't have
    std::shared_ptr<TimeSeries> Series;  // of the stored rows; null unless the run began

    RowsAbove Above;
    std::u16string BetterFormat;  // reads at least half of the unreadable times; empty without one
    Remedy TimeAdvice;            // what to set if times are read and no row has one

    std::uint64_t StoredRows() const { return Series == nullptr ? 0 : Series->Count; }
    std::uint64_t RefusedCells() const {
        std::uint64_t count = 0;
        for (const ColumnCheck& column : Columns) count += column.Refused.Count;
        return count;
    }
};

// Which lines a run is to note; null: not wanted. They outlive the run.
struct WantedLines {
    LineSet* Dropped = nullptr;  // rows without a sample
    LineSet* Refused = nullptr;  // rows with a refused cell; may be the same set
};

struct CheckOptions {
    WantedLines Wanted;
    std::function<void(std::uint32_t)> OnProgress;  // told each new percentage; may be empty
    const std::atomic<bool>* Cancel = nullptr;      // ends the run once it is true, set from any thread
    std::size_t Threads = 1;                        // at most, for a large file
    plan::AutomaticReading* Reading = nullptr;      // as that of RunOptions
};

// Imports the file at `path` under the settings in force (SettingsLayer) and stores nothing. Takes the time
// of an import; memory doesn't grow with the file. Raises nothing: a file that can't be read is a result.
CheckResult RunCheck(const ModuleLoader& module, const std::u16string& path, const CheckOptions& options);

// Fills in the counts of a result whose Format, Letters, Columns and Series are there before the first row.
// The columns rise. Memory is bounded but for a bit per line that is wanted.
class CheckObserver final : public IRunObserver {
  public:
    // The result outlives the observer.
    CheckObserver(CheckResult& result, WantedLines wanted) : Result(result), Wanted(wanted) {}

    void OnRowStored(const RowPlace& place, std::int64_t time) override;
    void OnRowDropped(const DroppedRow& row) override;
    void OnCellRefused(const RefusedCell& cell) override;
    void OnTimeBefore1990(const RowPlace& place, std::int64_t) override {
        Result.Before1990.Add({place.Line, place.MessageLine, {}});
    }
    void OnBlankLine(const RowPlace& place) override {
        ++Result.BlankLines;
        BlankAtEnd.Add({place.Line, 0, {}});
    }

  private:
    // Blank lines above a row are lines of the table.
    void SettleBlankLines() {
        if (BlankAtEnd.Count == 0) return;
        Result.Blank.Append(BlankAtEnd);
        BlankAtEnd = {};
    }

    CheckResult& Result;
    const WantedLines Wanted;
    FilePlaces BlankAtEnd;  // with no row below them yet
};

// What RunCheck does around its run, for a run that keeps its samples too.
class CheckOfRun {
  public:
    explicit CheckOfRun(const std::u16string& path, WantedLines wanted = {});

    // Adds to the options of the run what is needed. The object outlives the run and doesn't move.
    void Observe(RunOptions& options);

    // The result, after the run; once. The functions above say what is in it.
    CheckResult Finish(const ModuleLoader& module, const HostSession& session, const RunResult& run,
                       plan::AutomaticReading* reading);

    // The same so far, for a run that another one goes on behind, which this is to be the check of too: it
    // gets ObserveOn in place of Observe.
    CheckResult FinishForNow(const ModuleLoader& module, const HostSession& session, const RunResult& run,
                             plan::AutomaticReading* reading) const;
    void ObserveOn(RunOptions& options);

  private:
    void Settle(CheckResult& result, const ModuleLoader& module, const HostSession& session,
                const RunResult& run, plan::AutomaticReading* reading) const;

    const std::u16string Path;
    const FileWatch Watch;
    CheckResult Result;
    std::unique_ptr<CheckObserver> Observer;
};
}  // namespace kelvarin::check
