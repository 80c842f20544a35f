#include "host/plan/QuickCells.h"

#include <algorithm>

namespace kelvarin::plan {
namespace {
constexpr std::size_t PrefixSize = 2;  // "0x"

bool IsX(char16_t c) {
    return (c | 32) == u'x';
}

std::uint32_t Reversed(unsigned bits, std::size_t count) {
    std::uint32_t reversed = 0;
    for (std::size_t i = 0; i < count; ++i) reversed |= (bits >> i & 1) << (count - 1 - i);
    return reversed;
}
}  // namespace

QuickCells::QuickCells(std::u16string_view unit, bool becomeNumbers)
    : Unit(unit),
      BecomeNumbers(becomeNumbers),
      IsUnitApart(unit.empty() || IsHexDigit(unit.front()) || IsX(unit.front())) {}

void QuickCells::Learn(const CellCounts& counted) {
    if (!CountedUnit.empty() || counted.Text == 0 || counted.IsOneWord) return;
    CountedUnit = counted.AmountUnit;
    TakesAmounts = BecomeNumbers && !Unit.empty() && CountedUnit == Unit;
    // "0x1F" is "0" with the unit "x1F" as well.
    TakesHexadecimals = Unit.empty() || !IsX(Unit.front());
}

std::size_t QuickCells::TakeAmount(const QuickCut& line, std::size_t cell) {
    const std::u16string_view text = line.Cells()[cell];
    if (text.size() <= Unit.size() || !std::equal(Unit.rbegin(), Unit.rend(), text.rbegin())) return 0;
    std::size_t size = text.size() - Unit.size();
    if (text[size - 1] == u' ') {
        --size;
    } else if (IsUnitApart) {
        return 0;
    }
    if (text.front() == u'+') return 0;
    const std::size_t begin = line.PlaceOf(cell);
    const CellLook look = line.LookAt(begin, begin + size);
    if (look == CellLook::Other || look == CellLook::Empty) return 0;
    const bool isDecimal = look == CellLook::Decimal;
    DecimalAmounts += isDecimal;
    WholeAmounts += !isDecimal;
    return size;
}

// Of a cell that begins with a zero.
std::size_t QuickCells::TakeHexadecimal(const QuickCut& line, std::size_t cell) {
    const std::u16string_view text = line.Cells()[cell];
    const std::size_t digits = text.size() - PrefixSize;
    if (text.size() <= PrefixSize || digits > simd::MostHexDigits || !IsX(text[1])) return 0;
    // An amount that is counted as such.
    const std::u16string_view unit = text.substr(1);
    if (unit.size() <= LongestUnit && (CountedUnit.empty() || unit == CountedUnit)) return 0;
    const simd::HexMasks masks = simd::FindHexDigits(line.Bytes() + line.PlaceOf(cell) + PrefixSize);
    const unsigned all = (1u << digits) - 1;
    if ((~(masks.Digits | masks.Letters) & all) != 0) return 0;
    HexTally& tally = Hexadecimals[digits];
    ++tally.Cells;
    tally.WithLetters += (masks.Letters & all) != 0;
    tally.DigitPlaces |= masks.Digits & all;
    tally.LetterPlaces |= masks.Letters & all;
    return text.size();
}

void QuickCells::AddTo(CellCounts& counts) const {
    counts.Text += Amounts();
    counts.Amounts += Amounts();
    counts.DecimalAmounts += DecimalAmounts;
    for (std::size_t digits = 1; digits < Hexadecimals.size(); ++digits) {
        const HexTally& tally = Hexadecimals[digits];
        if (tally.Cells == 0) continue;
        counts.Text += tally.Cells;
        counts.Prefixed += tally.Cells;
        counts.Letters += tally.WithLetters;
        counts.LeastLength = counts.HexDigits == 0 ? digits : std::min(counts.LeastLength, digits);
        counts.MostLength = std::max(counts.MostLength, digits);
        counts.HexDigits += tally.Cells;
        counts.DigitPlaces |= Reversed(tally.DigitPlaces, digits);
        counts.LetterPlaces |= Reversed(tally.LetterPlaces, digits);
    }
}
}  // namespace kelvarin::plan
