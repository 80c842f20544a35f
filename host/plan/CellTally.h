// Counts the cells that need no look at their characters.
#pragma once

#include <array>
#include <cstdint>

#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// What a cell is, of those that nearly all cells are. A value from Whole on is a number of digits alone:
// Whole and so many digits, up to MostDigits.
enum class CellLook : std::uint8_t {
    Other,        // needs a look
    Decimal,      // digits, the decimal mark and digits, with a sign or without
    Empty,        //
    SignedWhole,  // digits with a sign
    Zero,         // "0"
    One,          // "1"
    Whole
};

// The looks of a column.
class CellTally {
  public:
    static constexpr std::size_t MostDigits = 18;

    // Not CellLook::Other.
    void Add(CellLook look) { ++Cells[static_cast<std::size_t>(look)]; }

    std::uint64_t Decimals() const { return Cells[static_cast<std::size_t>(CellLook::Decimal)]; }

    // Counts each of the cells as CellCounts::Add does.
    void AddTo(CellCounts& counts) const;

  private:
    std::array<std::uint64_t, static_cast<std::size_t>(CellLook::Whole) + MostDigits + 1> Cells{};
};
}  // namespace kelvarin::plan
