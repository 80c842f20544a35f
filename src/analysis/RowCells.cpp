#include "analysis/RowCells.h"

#include <algorithm>

#include "analysis/ScanCell.h"
#include "analysis/SplitPaddedLine.h"
#include "platform/framework/Text.h"
#include "simd/Units.h"

namespace {

// Copied behind each line: cheaper than to fill so few characters.
constexpr char16_t Padding[LinePadding] = {};

template <class Text>
bool IsWhiteSpaceAlone(const Text& text) {
    return std::all_of(text.begin(), text.end(),
                       [](auto c) { return IsWhiteSpace(static_cast<char16_t>(c)); });
}

// The cell of a 1-based column, or null.
template <class Unit>
Unit* FindCell(const CellsOf<Unit>& cells, int column) {
    if (column < 1 || static_cast<std::size_t>(column) > cells.size()) return nullptr;
    return cells[static_cast<std::size_t>(column) - 1];
}

}  // namespace

bool RowCells::Read(CStdioFileEx& file, char16_t separator, bool merge) {
    IsInBytes = ReadHeld(file, separator, merge);
    if (IsInBytes) return true;
    if (!file.ReadString(Line)) return false;
    Split(separator, merge);
    return true;
}

bool RowCells::Pass(CStdioFileEx& file, char16_t separator, bool merge) {
    bool isText = false;
    IsInBytes = false;
    if (!file.PassLine(Line, isText)) return false;
    IsBlankLine = false;
    if (!isText) Split(separator, merge);
    return true;
}

bool RowCells::ReadHeld(CStdioFileEx& file, char16_t separator, bool merge) {
    static_assert(LinePadding <= CStdioFileEx::HeldPadding);
    const std::string_view held = file.GetHeldBytes();
    const std::size_t length = SplitHeldLine(held, separator, merge, ByteLine, ByteCells);
    if (length == 0) return false;
    IsBlankLine = ByteCells.size() == 1 && IsWhiteSpaceAlone(held.substr(0, length));
    file.PassHeldBytes(length);
    if (Line.size() < ByteLine.size()) Line.resize(ByteLine.size());
    return true;
}

void RowCells::Split(char16_t separator, bool merge) {
    const bool isWhite = IsWhiteSpaceAlone(Line);
    Line.append(Padding, LinePadding);
    SplitPaddedLine(Line.data(), separator, merge, Cells);
    IsBlankLine = isWhite && Cells.size() == 1;
}

const CellList& RowCells::Wide() {
    if (!IsInBytes) return Cells;
    Cells.clear();
    for (const char* const cell : ByteCells) Cells.push_back(Widen(cell, ScanLength(cell)));
    return Cells;
}

const char16_t* RowCells::CellOf(int column) {
    if (!IsInBytes) return FindCell(Cells, column);
    const char* const cell = BytesOf(column);
    return cell == nullptr ? nullptr : Widen(cell, ScanLength(cell));
}

const char* RowCells::BytesOf(int column) const {
    return IsInBytes ? FindCell(ByteCells, column) : nullptr;
}

char16_t* RowCells::Widen(const char* cell, std::size_t length) {
    static_assert(LinePadding > 2 * simd::BytesPerBlock);
    char16_t* const wide = Line.data() + (cell - ByteLine.data());
    // With its terminating zero. What is written behind it is what a later cell would become. Two blocks hold
    // nearly all texts: how many they need can't be predicted.
    for (std::size_t at = 0; at <= length; at += 2 * simd::BytesPerBlock) {
        static_cast<void>(simd::WidenBlock(cell + at, wide + at));
        static_cast<void>(simd::WidenBlock(cell + at + simd::BytesPerBlock, wide + at + simd::BytesPerBlock));
    }
    return wide;
}
