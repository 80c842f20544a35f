// Lines above the table that look like rows of it.
#pragma once

#include <cstdint>
#include <optional>

#include "contract/ImportFilter.h"
#include "host/Reading.h"

namespace kelvarin::check {

// The longest stretch of such lines, numbered from 1; First is 0 if there is none.
struct RowsAbove {
    std::uint64_t First = 0, Last = 0;
    bool FollowsText = false;  // the line directly above the first is not blank
    int Separator = 0;         // an ESeparator, by which they are rows
};

// Where rows may be that were not read.
struct RowSearch {
    std::uint64_t End = 0;                   // the first line that is none of them
    std::optional<std::int64_t> BeforeTime;  // of the first stored row: they must be earlier. Nanoseconds
    bool AnySeparator = false;               // the separator too is in doubt
};

// The analysis looks for the table's start, and where it finds it too far down, rows are lost without a
// message. A line counts as a row if its time fits the format or, with times that are counted, if it is
// written like the first row but for its numbers. Looks at the first 999 lines, since no setting can name a
// start further down. Nothing is found by a filter without ITableReader and ITimeReader, or whose file can't
// be read.
RowsAbove FindRowsAbove(const CImportFilter& filter, const Reading& format, const RowSearch& search);

}  // namespace kelvarin::check
