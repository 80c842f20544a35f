// Cuts lines as LineCutter does, those of nearly every file, in few steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "host/plan/CellLook.h"
#include "host/plan/Cells.h"
#include "simd/CellUnits.h"

namespace kelvarin::plan {
// One line after the other, 64 characters at a time.
class QuickCut {
  public:
    // `mark` is the decimal mark of the file.
    QuickCut(const Cut& how, char16_t mark);

    // False for a line that only LineCutter cuts: with doubled quotes, or cut in a rare way.
    bool operator()(std::u16string_view line);

    // The cells of that line, as LineCutter gives them; valid until the next call, and as long as the line.
    const std::vector<std::u16string_view>& Cells() const { return Found; }

    // The line with a tab for each separator and at its end, where NUL follows, and a point for each decimal
    // mark; NUL or a byte beyond ASCII for a character beyond ASCII. simd::MostHexDigits bytes can be read
    // from any character on.
    const char* Bytes() const { return Narrow.data(); }

    // True if the line is its cells with one separator between each two.
    bool IsTight() const { return Tight; }

    // Where a cell begins in Bytes.
    std::size_t PlaceOf(std::size_t cell) const {
        return static_cast<std::size_t>(Found[cell].data() - Line.data());
    }

    // What a cell is, and a part of one.
    CellLook LookAt(std::size_t cell) const {
        const std::size_t begin = PlaceOf(cell);
        return LookAt(begin, begin + Found[cell].size());
    }
    CellLook LookAt(std::size_t begin, std::size_t end) const {
        return LookAtCell(Masks.data(), Line.data(), begin, end);
    }

  private:
    void Scan();
    bool HideQuotedSeparators();
    void CutTightly();
    bool CutLoosely();
    bool IsSeparator(std::size_t at) const;
    std::size_t NextSeparator(std::size_t from) const;
    std::size_t SkipSeparators(std::size_t at) const;
    bool TakeInQuotes(std::size_t begin, std::size_t& end);
    std::u16string_view RoughCell(std::size_t begin, std::size_t end);
    std::u16string_view Trimmed(std::size_t begin, std::size_t end) const;

    const bool IsKnown;  // this class can cut so
    const bool Merges;
    const simd::CellSyntax Syntax;
    bool HasQuotes = false, HasBlanks = false;
    bool Tight = false;
    std::u16string_view Line;
    std::vector<simd::CellMasks> Masks;  // of 64 characters each; the end of the line is a separator
    std::vector<std::uint64_t> Quoted;   // the same, of characters within quotes
    std::vector<char> Narrow;
    std::vector<std::u16string_view> Found;
};
}  // namespace kelvarin::plan
