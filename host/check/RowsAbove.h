// Lines above the table that look like rows of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/check/TimeProbe.h"

namespace kelvarin::check {

// The longest stretch of such lines; First is 0 if there is none.
struct RowsAbove {
    std::uint64_t First = 0, Last = 0;
    bool FollowsText = false;  // a line that is not blank stands above the first
    int Separator = 0;         // by which they are rows
};

// Where rows may stand that were not read.
struct RowSearch {
    std::uint64_t End = 0;                   // the first line that is none of them
    std::optional<std::int64_t> BeforeTime;  // of the first row that was stored; they must be earlier
    bool AnySeparator = false;               // the separator too is in doubt
};

// The analysis looks for the table's start, and where it finds it too low, rows are lost without a word. A
// line counts as a row if its time reads or, with times that are counted, if it is written like the first
// row but for its numbers. Looks at the first 999 lines: a table can't be told to begin further below. Raises
// CFileException.
RowsAbove FindRowsAbove(const std::u16string& path, const TimeSource& reading, const ModuleLoader& module,
                        const RowSearch& search);

}  // namespace kelvarin::check
