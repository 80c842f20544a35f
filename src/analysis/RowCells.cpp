#include "analysis/RowCells.h"

#include <algorithm>

#include "analysis/ScanCell.h"
#include "analysis/SplitPaddedLine.h"
#include "platform/framework/Text.h"
#include "simd/Units.h"

namespace {

// Copied behind each line: cheaper than to fill so few characters.
constexpr char BytePadding[LinePadding] = {};
constexpr char16_t Padding[LinePadding] = {};

template <class Text>
bool IsBlank(const Text& line) {
    return std::all_of(line.begin(), line.end(),
                       [](auto c) { return IsWhiteSpace(static_cast<char16_t>(c)); });
}

}  // namespace

bool RowCells::Read(CStdioFileEx& file) {
    IsInBytes = file.ReadBytes(ByteLine);
    return IsInBytes || file.ReadString(Line);
}

bool RowCells::Pass(CStdioFileEx& file, bool& isText) {
    IsInBytes = false;
    return file.PassLine(Line, isText);
}

bool RowCells::Split(char16_t separator, bool merge) {
    if (IsInBytes) {
        const bool isBlank = IsBlank(ByteLine);
        const std::size_t length = ByteLine.size();
        ByteLine.append(BytePadding, LinePadding);
        if (SplitPaddedBytes(ByteLine.data(), separator, merge, ByteCells)) {
            if (Line.size() < ByteLine.size()) Line.resize(ByteLine.size());
            return isBlank && ByteCells.size() == 1;
        }
        IsInBytes = false;
        ByteLine.resize(length);
        CStdioFileEx::DecodeBytes(ByteLine, Line);
    }
    const bool isBlank = IsBlank(Line);
    Line.append(Padding, LinePadding);
    SplitPaddedLine(Line.data(), separator, merge, Cells);
    return isBlank && Cells.size() == 1;
}

const CellList& RowCells::Wide() {
    if (!IsInBytes) return Cells;
    Cells.clear();
    for (const char* const cell : ByteCells) Cells.push_back(Widen(cell, ScanLength(cell)));
    return Cells;
}

const char16_t* RowCells::CellOf(int column) {
    const std::size_t count = IsInBytes ? ByteCells.size() : Cells.size();
    if (column < 1 || static_cast<std::size_t>(column) > count) return nullptr;
    const auto index = static_cast<std::size_t>(column) - 1;
    if (!IsInBytes) return Cells[index];
    return Widen(ByteCells[index], ScanLength(ByteCells[index]));
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
