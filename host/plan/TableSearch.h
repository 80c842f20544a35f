// Finds the table of a file as a person does: rows alike in width and in what their cells hold.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "host/plan/Cells.h"
#include "host/plan/FileSample.h"
#include "host/plan/FixedTable.h"

namespace kelvarin::plan {
// A line without its texts.
struct RowShape {
    std::size_t Line = 0;                             // index in the sample
    std::size_t Cells = 0;                            // all of them
    std::size_t Filled = 0, Numbers = 0, Values = 0;  // numbers; dates, amounts and other values that aren't
    bool AreKinds = false;                            // words such as "Avg" and "REAL32"
    std::vector<CellKind> Kinds;                      // of the first cells

    CellKind Kind(std::size_t column) const {
        return column < Kinds.size() ? Kinds[column] : CellKind::Empty;
    }

    // A value in the first cell, or in a quarter of those that aren't empty.
    bool LooksLikeData() const;
};

struct FoundTable {
    Cut How;
    std::size_t First = 0;          // index in the sample of the first row
    std::size_t Width = 0;          // cells of most rows
    std::size_t Rows = 0;           // in the sample
    double Score = 0;               // comparable between tables of one file
    std::vector<RowShape> Shapes;   // of all lines of the sample, blank ones without cells
    std::vector<bool> HoldsValues;  // by column: numbers and the like, not words
};

// The lines of the sample cut as a table of so many columns, whose first row is not known yet. `mark` is the
// usual decimal mark of its numbers, which are found sooner by it.
FoundTable CutTable(const FileSample& sample, const Cut& how, std::size_t width, char16_t mark);

// The best table of the sample, as far as it is not fixed; nothing if no line holds a value. One with a fixed
// first line begins in the block of lines from there on if there is one.
std::optional<FoundTable> FindTable(const FileSample& sample, const FixedTable& fixed = {});
}  // namespace kelvarin::plan
