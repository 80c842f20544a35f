// All that a check of one file found out.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/check/DroppedRows.h"
#include "host/check/FilePlaces.h"
#include "host/check/RowsAbove.h"
#include "host/check/TimeSeries.h"

namespace kelvarin::check {

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
    bool Failed = false;       // could not begin, or a read error ended it
    bool Interrupted = false;  // was cancelled; all below is of the lines read so far
    std::u16string Failure;    // the module's message about the file or its sidecar; empty without one

    Reading Format;
    std::u16string Letters;  // of a timestamp format, see ITimeReader::FormatLetters

    std::uint64_t Lines = 0;       // read from the first data line on
    std::uint64_t BlankLines = 0;  // of these, all
    FilePlaces Blank;              // of these, with rows below them; the module doesn't count them
    FilePlaces Before1990;         // rows with an absolute time that not every host can process
    std::vector<ColumnCheck> Columns;
    DroppedRows Dropped;
    std::unique_ptr<TimeSeries> Series;  // of the stored rows; null unless the run began

    RowsAbove Above;
    std::u16string BetterFormat;  // reads at least half of the unreadable times; empty without one
    Remedy TimeAdvice;            // what to set if times are read and no row has one

    std::uint64_t StoredRows() const { return Series == nullptr ? 0 : Series->Count(); }
    std::uint64_t RefusedCells() const {
        std::uint64_t count = 0;
        for (const ColumnCheck& column : Columns) count += column.Refused.Count();
        return count;
    }
};

}  // namespace kelvarin::check
