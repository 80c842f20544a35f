// All that a check of one file found out.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/check/DroppedRows.h"
#include "host/check/FilePlaces.h"
#include "host/check/RowsAbove.h"
#include "host/check/TimeSeries.h"
#include "host/check/TimeSource.h"

namespace kelvarin::check {

// A column that became a signal.
struct ColumnCheck {
    int Column = 0;  // 1-based
    std::u16string Name;
    std::u16string TypeName;  // of the module, known once a cell was refused
    std::uint64_t Samples = 0;
    std::uint64_t Empty = 0;  // samples without value whose cell was empty or not there
    FilePlaces Refused;       // cells that are not of the column's type
};

struct CheckResult {
    bool Begun = false;
    bool Failed = false;       // could not begin, or a read error ended it
    bool Interrupted = false;  // Ctrl-C ended it; all below is of the lines read so far
    std::u16string Failure;    // the module's message about the file; empty without one

    std::uint64_t Lines = 0;  // read from the first data line on
    std::uint64_t BlankLines = 0;
    FilePlaces Blank;       // blank lines with rows behind them; the module doesn't count them
    FilePlaces Before1990;  // rows with an absolute time that the host can't process
    TimeSource Reading;
    std::vector<ColumnCheck> Columns;
    DroppedRows Dropped;
    RowsAbove Above;
    std::unique_ptr<TimeSeries> Series;  // null unless the run began

    std::uint64_t RefusedCells() const {
        std::uint64_t count = 0;
        for (const ColumnCheck& column : Columns) count += column.Refused.Count();
        return count;
    }
};

}  // namespace kelvarin::check
