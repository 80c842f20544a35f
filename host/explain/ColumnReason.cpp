#include "host/explain/ColumnReason.h"

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {

namespace {

constexpr std::size_t QuotedWidth = 40;

// What the cells of a text column would be without the few that aren't: the lowest type of most cells.
void FindMostType(ColumnReason& reason, const std::array<std::size_t, DataTypes>& fitting) {
    for (int type = BooleanType; type < TextType; ++type) {
        const std::size_t count = fitting[static_cast<std::size_t>(type - 1)];
        if (count <= reason.Most || 2 * count < reason.Cells) continue;
        reason.Most = count;
        reason.MostType = type;
    }
}

// The type that people would have expected of cells of this type, and that one cell ended.
int NearestBelow(const ColumnReason& reason) {
    switch (reason.Type) {
        case IntegerType:
            return BooleanType;
        case FloatUnitType:
            return reason.Fell[FloatType - 1].FirstLine < reason.Fell[IntegerUnitType - 1].FirstLine
                       ? IntegerUnitType
                       : FloatType;
        case CharType:
            return HexType;
        default:
            return IntegerType;
    }
}

std::string MisfitsInWords(const ColumnReason& reason) {
    const std::string type = DataTypeInWords(reason.MostType);
    const CellGroup& empty = reason.Empty;
    const CellGroup& other = reason.Others;
    if (other.Count == 0 && empty.Count == 1)
        return Phrase("because of one empty cell, in line {}, among {} of type {}", empty.FirstLine,
                      reason.Most, type);
    if (other.Count == 0)
        return Phrase("because of {} empty cells among {} of type {}, first in line {}", empty.Count,
                      reason.Most, type, empty.FirstLine);
    if (empty.Count == 0 && other.Count == 1)
        return Phrase("because of {} in line {} among {} of type {}", Quoted(other.FirstText),
                      other.FirstLine, reason.Most, type);
    if (empty.Count == 0)
        return Phrase("because of {} other cells among {} of type {}, first {} in line {}", other.Count,
                      reason.Most, type, Quoted(other.FirstText), other.FirstLine);
    return Phrase(
        "because of {} empty cells (first in line {}) and {} others (first {} in line {}) among {} of type "
        "{}",
        empty.Count, empty.FirstLine, other.Count, Quoted(other.FirstText), other.FirstLine, reason.Most,
        type);
}

std::string TextReasonInWords(const ColumnReason& reason) {
    if (reason.Cells == 1 && reason.Empty.Count == 1) return Phrase("since its only cell is empty");
    if (reason.Empty.Count == reason.Cells)
        return Phrase("since each of the {} cells is empty", reason.Cells);
    if (reason.MostType != NoType) return MisfitsInWords(reason);
    const CellGroup& other = reason.Others;
    if (reason.Empty.Count == 0)
        return Phrase("{} in line {} fits no other type", Quoted(other.FirstText), other.FirstLine);
    return Phrase("{} in line {} fits no other type, and {} of {} cells are empty", Quoted(other.FirstText),
                  other.FirstLine, reason.Empty.Count, reason.Cells);
}

}  // namespace

ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column) {
    ColumnReason reason;
    std::array<std::size_t, DataTypes> fitting{};
    reason.Type = record.TypeOf(column);
    const auto forEachCell = [&](auto&& visit) {
        for (const SeenRow& row : record.Rows) {
            if (column < row.Cells.size()) visit(row.Line, row.Cells[column]);
        }
    };
    forEachCell([&](int line, const SeenCell& cell) {
        ++reason.Cells;
        for (int type = BooleanType; type <= TextType; ++type) {
            const auto place = static_cast<std::size_t>(type - 1);
            fitting[place] += Contains(cell.Fits, type);
            if (Contains(cell.Before & ~cell.After, type)) reason.Fell[place].Add(line, cell.Text);
        }
        if (cell.Text.empty()) reason.Empty.Add(line, cell.Text);
    });
    if (reason.Type != TextType) return reason;
    FindMostType(reason, fitting);
    forEachCell([&](int line, const SeenCell& cell) {
        const bool isOfMost = reason.MostType != NoType && Contains(cell.Fits, reason.MostType);
        if (!cell.Text.empty() && !isOfMost) reason.Others.Add(line, cell.Text);
    });
    return reason;
}

std::string ReasonInWords(const ColumnReason& reason) {
    if (reason.Cells == 0) return Phrase("no row of data has this cell");
    if (reason.Type == TextType) return TextReasonInWords(reason);
    if (reason.Type == BooleanType) return Phrase("each of the {} cells fits", reason.Cells);
    const int below = NearestBelow(reason);
    const CellGroup& end = reason.Fell[static_cast<std::size_t>(below - 1)];
    if (end.Count == 0) return Phrase("each of the {} cells fits", reason.Cells);
    return Phrase("{} in line {} is no {}", Quoted(end.FirstText), end.FirstLine, DataTypeInWords(below));
}

std::string Quoted(const std::u16string& text) {
    return "\"" + OneLine(Utf16ToUtf8(text), QuotedWidth) + "\"";
}

}  // namespace kelvarin::explain
