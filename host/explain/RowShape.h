// What a row looks like to a person who searches for the table. Inside the explanation only.
#pragma once

#include <vector>

#include "contract/TableReader.h"

namespace kelvarin::explain {
enum class CellKind {
    Empty,   // or a marker of a missing value
    Number,  // as the module reads it
    Digits,  // a date, a time, a value with a unit, a hexadecimal number
    Word
};

// A row without its texts.
struct RowShape {
    explicit RowShape(const CutLine& row);

    int Line;
    std::size_t Cells;
    std::size_t Filled = 0, Numbers = 0, Digits = 0;  // of the cells
    std::vector<CellKind> Kinds;                      // of the first cells

    CellKind Kind(std::size_t column) const {
        return column < Kinds.size() ? Kinds[column] : CellKind::Empty;
    }

    // A value in the first cell, or in a quarter of those that aren't empty, as the module's own test for a
    // line of data has it.
    bool LooksLikeData() const;

    // Numbers count one, other digits a half: of two separators the one wins that leaves numbers, where the
    // other leaves pieces that only begin with a digit.
    double Value() const { return static_cast<double>(Numbers) + static_cast<double>(Digits) / 2; }
};

// The columns of a table that hold values: numbers or other digits in four of five cells that aren't empty. A
// column of values may hold an error text here and there, one of names may hold a number.
class ValueColumns {
  public:
    // Learns from the lower half of the rows with this number of cells that look like data.
    ValueColumns(const std::vector<RowShape>& rows, std::size_t cells);

    bool IsEmpty() const;

    // True for names, units and the like above the values: words in the first column or in most columns,
    // where the table has values.
    bool IsUnlike(const RowShape& row) const;

  private:
    std::vector<bool> HoldsValues;
};
}  // namespace kelvarin::explain
