// What becomes of the rows of a table under a recipe for their times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/CellLook.h"
#include "host/plan/OtherTables.h"
#include "host/plan/TextPool.h"
#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
// Rows of the table in the sample, cut.
struct TableRows {
    std::vector<std::vector<std::u16string_view>> Cells;  // as long as Texts lives
    std::vector<std::vector<CellLook>> Looks;             // of Cells
    char16_t LookMark = u'.';                             // the decimal mark of Looks
    std::shared_ptr<TextPool> Texts;
    std::size_t Width = 0;                  // cells of most rows
    std::vector<std::u16string> DateLines;  // by row: the date that a line of its own before it holds, or ""
    std::vector<bool> IsAfterGap;           // rows between it and the one before are not in the sample
};

// The rows of a found table; those of others with another width are not among them. `mark` is the usual
// decimal mark of its numbers, which are told by it without a look at their characters.
TableRows RowsOf(const FileSample& sample, const FoundTable& table, const std::vector<OtherTable>& others,
                 char16_t mark);

// The texts of a column, empty cells left out, as long as the rows live. `column` counts from 0.
std::vector<std::u16string_view> TextsOf(const TableRows& rows, std::size_t column);

struct TimeTrial {
    std::size_t Read = 0;              // rows with a time
    std::size_t Rising = 0;            // later than the row before
    std::size_t Equal = 0;             // as late as the row before
    std::size_t Falling = 0;           // earlier
    std::int64_t First = 0, Last = 0;  // ns, as TimeRecipe gives them
    std::int64_t MedianStep = 0;       // ns, of rising rows

    bool EndsAtStart =
        false;  // the last row is as early as the first, and no other is earlier than the one before

    bool IsDescending() const { return Falling > 2 * Rising; }
};

TimeTrial Try(const TimeRecipe& recipe, const TableRows& rows);
}  // namespace kelvarin::plan
