// Writes a copy of a measurement file that the module reads without doubt: one header line, one table, one
// column of times.
//
// The copy is text in UTF-8 with a byte order mark, separated by tabs, with a decimal point. Its rows are in
// the order of their times, equal times in the order of the file.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/CopyTime.h"
#include "host/plan/LineMap.h"
#include "host/plan/ReadingPlan.h"
#include "platform/framework/ScratchFile.h"

namespace kelvarin::plan {
enum class CopyLayout {
    // Column i of the file is column i of the copy, cells of time columns are empty, and the time is the last
    // column: ReadingPlan::Columns.size(), from 0. Names have no units added; one that the file doesn't have
    // is empty.
    InPlace,
    // The time is the first column, the file's time columns are left out, and names end in their unit in
    // brackets: "Druck [bar]". A column without a name is called by its number in the file, "Column 3".
    ForPeople,
};

// Rows whose cell in a column is this text.
struct DeviceRows {
    std::size_t Column = 0;  // from 0
    std::u16string Device;
};

struct CopyOptions {
    CopyLayout Layout = CopyLayout::InPlace;
    const std::atomic<bool>* Cancel = nullptr;            // any thread sets it to end the copy
    std::function<void(std::uint32_t)> OnProgress;        // gets each new percentage; may be empty
    std::size_t MostSortedBytes = std::size_t{64} << 20;  // of rows in memory; more are sorted on the disk

    bool IsCanceled() const { return Cancel != nullptr && *Cancel; }
};

// Lines of one kind that the copy doesn't have.
struct LinesLeftOut {
    std::uint64_t Count = 0;
    std::vector<std::uint64_t> First;  // numbers of the first 20, from 1
};

struct CopyRows {
    std::uint64_t Written = 0;
    LinesLeftOut Blank;
    LinesLeftOut Headers;     // the header line or the units line again
    LinesLeftOut OtherTable;  // of a table of another width, after other lines without a time
    LinesLeftOut Timeless;    // other lines without a time
    LinesLeftOut Totals;      // the last row, if it sums up the others
};

struct CopyChanges {
    std::uint64_t Values = 0;      // numbers and truth values that are written in another way
    std::uint64_t Missing = 0;     // markers in columns of numbers that became empty cells
    std::uint64_t ExtraCells = 0;  // not empty, beyond the columns of the plan, left out
};

struct CopyResult {
    std::string Failure;       // one sentence, in UTF-8; not empty if there is no copy
    bool Interrupted = false;  // Cancel ended it; there is no copy
    CopyTimes Times = CopyTimes::Local;
    std::int64_t Shift = 0;         // ns added to elapsed times so that the least is 0 where it was negative
    std::vector<CellCounts> Cells;  // by column of the file, of all rows as they are in the file
    std::vector<ColumnType> Types;  // by column of the file, after Cells
    CopyRows Rows;
    CopyChanges Changes;
    LineMap Lines;        // line 1 of the copy is the header
    bool Sorted = false;  // the rows of the file are not in the order of their times
};

// Copies the file by its plan, which must have times and lives longer than the call. Memory doesn't grow with
// the file but for LineMap. A target that can't be completed stays as it was before.
CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, const std::u16string& target,
                          const CopyOptions& options);

// The copy of one device: rows that are not its own are left out, and not counted.
struct DeviceCopy {
    DeviceRows Rows;
    std::u16string Target;
};

// The copies of several devices, made as one reading of the file makes them. Results are in their order;
// where a copy fails, those after it are not made. Of rows, MostSortedBytes are in memory for all together.
std::vector<CopyResult> WriteDeviceCopies(const std::u16string& source, const ReadingPlan& plan,
                                          const std::vector<DeviceCopy>& copies, const CopyOptions& options);

// The same, into a file of this process that CFile can open at ScratchFile::Path.
CopyResult WriteCleanCopy(const std::u16string& source, const ReadingPlan& plan, ScratchFile& target,
                          const CopyOptions& options);
}  // namespace kelvarin::plan
