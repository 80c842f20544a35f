// The amounts and the hexadecimal numbers of a column, copied and counted in few steps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/plan/QuickCut.h"
#include "host/plan/ReadingPlan.h"
#include "simd/CellUnits.h"

namespace kelvarin::plan {
// Takes "-12.3 V" or "12.3V" where V is the unit of the column, and "0x1F". What such cells add to CellCounts
// depends on the cells before them until two texts that differ are counted: until then it takes none.
class QuickCells {
  public:
    // `unit` is that of the column; amounts are taken if they become numbers in the copy.
    QuickCells(std::u16string_view unit, bool becomeNumbers);

    // Finds out what can be taken after the cells that were counted, in the order of the file.
    void Learn(const CellCounts& counted);

    // The number of characters at the beginning of a cell of a line that the copy has in its place; they are
    // in the bytes of the line. 0 for a cell that isn't taken.
    std::size_t Take(const QuickCut& line, std::size_t cell) {
        if (TakesAmounts) return TakeAmount(line, cell);
        return TakesHexadecimals && line.Cells()[cell].starts_with(u'0') ? TakeHexadecimal(line, cell) : 0;
    }

    // Amounts taken so far.
    std::uint64_t Amounts() const { return WholeAmounts + DecimalAmounts; }

    // Counts each of the cells as CellCounts::Add does.
    void AddTo(CellCounts& counts) const;

  private:
    // Numbers of as many digits, the bits of their places from the left.
    struct HexTally {
        std::uint64_t Cells = 0;
        std::uint64_t WithLetters = 0;
        unsigned DigitPlaces = 0, LetterPlaces = 0;
    };

    std::size_t TakeAmount(const QuickCut& line, std::size_t cell);
    std::size_t TakeHexadecimal(const QuickCut& line, std::size_t cell);

    const std::u16string Unit;
    const bool BecomeNumbers;
    const bool IsUnitApart;  // only after a blank: "5 A", as "5A" may be hexadecimal
    bool TakesAmounts = false, TakesHexadecimals = false;
    std::u16string CountedUnit;  // CellCounts::AmountUnit; empty before the first amount
    std::uint64_t WholeAmounts = 0, DecimalAmounts = 0;
    std::array<HexTally, simd::MostHexDigits + 1> Hexadecimals{};  // by their number of digits
};
}  // namespace kelvarin::plan
