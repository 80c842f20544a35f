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
}  // namespace kelvarin::explain
