// A whole file through the module, with nothing kept but what a check tells.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/check/CheckHost.h"
#include "host/check/CheckResult.h"
#include "host/check/LineSet.h"
#include "host/check/MessageTemplate.h"

namespace kelvarin::check {

// Which lines a run is to note.
struct WantedLines {
    LineSet* Dropped = nullptr;  // rows without a sample; null: not wanted
    LineSet* Refused = nullptr;  // rows with a refused cell
};

class CheckRun {
  public:
    CheckRun(const ModuleLoader& module, const std::u16string& path, WantedLines wanted);

    // `onProgress` is told the percentages.
    CheckResult Run(const std::function<void(std::uint32_t)>& onProgress);

    // As the analysis of the run left it.
    CImportFilter& Filter() { return Host.Filter(); }

  private:
    void Begin();
    void ReadLines(const std::function<void(std::uint32_t)>& onProgress);
    void TakeRow(std::uint64_t line);

    // A message of the row; true if it says that the row was dropped.
    bool TakeMessage(const ImportMessage& message, std::uint64_t line);
    void TakeRefusedCell(const ImportMessage& message, std::uint64_t line);
    void FinishColumns();
    void LookAgain();
    void LookAbove();

    const ModuleLoader& Module;
    const std::u16string Path;
    const WantedLines Wanted;
    CheckHost Host;
    CheckResult Result;
    const MessageTemplate RefusedCell;
    std::vector<std::size_t> ColumnAt;  // place in Result.Columns by 0-based column of the file
    FilePlaces BlankAtEnd;              // with no row behind them yet
};

}  // namespace kelvarin::check
