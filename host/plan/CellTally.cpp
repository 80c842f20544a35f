#include "host/plan/CellTally.h"

#include <algorithm>

namespace kelvarin::plan {
namespace {
// Numbers of digits alone, which may be hexadecimal as well.
void AddWholes(std::size_t digits, std::uint64_t cells, CellCounts& counts) {
    constexpr std::size_t MostHexDigits = 16;
    if (cells == 0) return;
    counts.Whole += cells;
    if (digits > MostHexDigits) return;
    counts.LeastLength = counts.HexDigits == 0 ? digits : std::min(counts.LeastLength, digits);
    counts.MostLength = std::max(counts.MostLength, digits);
    counts.HexDigits += cells;
    counts.DigitPlaces |= (1u << digits) - 1;
}
}  // namespace

void CellTally::AddTo(CellCounts& counts) const {
    const auto of = [this](CellLook look) { return Cells[static_cast<std::size_t>(look)]; };
    counts.Empty += of(CellLook::Empty);
    counts.Decimal += of(CellLook::Decimal);
    counts.Whole += of(CellLook::SignedWhole);
    counts.Nulls += of(CellLook::Zero);
    counts.Ones += of(CellLook::One);
    AddWholes(1, of(CellLook::Zero) + of(CellLook::One), counts);
    for (std::size_t digits = 1; digits <= MostLookDigits; ++digits)
        AddWholes(digits, Cells[static_cast<std::size_t>(CellLook::Whole) + digits], counts);
}
}  // namespace kelvarin::plan
