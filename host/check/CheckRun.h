// A whole file through the module, with nothing kept but what a check reports.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

#include "contract/RunObserver.h"
#include "host/ModuleLoader.h"
#include "host/check/CheckResult.h"
#include "host/check/RejectsFile.h"

namespace kelvarin::check {

// Which lines a run is to note; null: not wanted. They outlive the run.
struct WantedLines {
    LineSet* Dropped = nullptr;  // rows without a sample
    LineSet* Refused = nullptr;  // rows with a refused cell; may be the same set
};

struct CheckOptions {
    WantedLines Wanted;
    std::function<void(std::uint32_t)> OnProgress;  // told each new percentage; may be empty
    const std::atomic<bool>* Cancel = nullptr;      // ends the run once it is true, set from any thread
};

// Imports the file at `path` under the settings in force (SettingsLayer) and stores nothing. Takes the time
// of an import, on the thread of the caller; memory doesn't grow with the file. Raises nothing: a file that
// can't be read is a result.
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
    void OnTimeBefore1990(const RowPlace& place, std::int64_t time) override;
    void OnBlankLine(const RowPlace& place) override;

  private:
    // Blank lines above a row are lines of the table.
    void SettleBlankLines() {
        if (BlankAtEnd.Count() == 0) return;
        Result.Blank.Append(BlankAtEnd);
        BlankAtEnd = {};
    }

    CheckResult& Result;
    const WantedLines Wanted;
    FilePlaces BlankAtEnd;  // with no row below them yet
};

}  // namespace kelvarin::check
