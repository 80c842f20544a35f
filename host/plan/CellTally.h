// Counts the cells that need no look at their characters.
#pragma once

#include <array>
#include <cstdint>

#include "host/plan/CellLook.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// The looks of a column.
class CellTally {
  public:
    // Not CellLook::Other.
    void Add(CellLook look) { ++Cells[static_cast<std::size_t>(look)]; }

    std::uint64_t Decimals() const { return Cells[static_cast<std::size_t>(CellLook::Decimal)]; }

    // Counts each of the cells as CellCounts::Add does.
    void AddTo(CellCounts& counts) const;

  private:
    std::array<std::uint64_t, static_cast<std::size_t>(CellLook::Whole) + MostLookDigits + 1> Cells{};
};
}  // namespace kelvarin::plan
