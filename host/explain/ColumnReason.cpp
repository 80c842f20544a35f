#include "host/explain/ColumnReason.h"

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {

namespace {

const CellGroup& FallOf(const ColumnReason& reason, int type) {
    return reason.Fell[static_cast<std::size_t>(type - 1)];
}

// The type that people would have expected of cells of this type, and that one cell ruled out.
int NearestBelow(const ColumnReason& reason) {
    if (reason.Type == CsvTypeInteger) return CsvTypeBoolean;
    if (reason.Type == CsvTypeChar) return CsvTypeHex;
    if (reason.Type != CsvTypeFloatUnit) return CsvTypeInteger;
    const bool isFloatFirst =
        FallOf(reason, CsvTypeFloat).FirstLine < FallOf(reason, CsvTypeIntegerUnit).FirstLine;
    return isFloatFirst ? CsvTypeIntegerUnit : CsvTypeFloat;
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
    if (reason.MostType != CsvTypeUndefined) return MisfitsInWords(reason);
    const CellGroup& other = reason.Others;
    if (reason.Empty.Count == 0)
        return Phrase("{} in line {} fits no other type", Quoted(other.FirstText), other.FirstLine);
    return Phrase("{} in line {} fits no other type, and {} of {} cells are empty", Quoted(other.FirstText),
                  other.FirstLine, reason.Empty.Count, reason.Cells);
}

}  // namespace

ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column) {
    ColumnReason reason;
    const auto where = [&](auto passes) { return CellsWhere(record, column, passes); };
    reason.Type = record.TypeOf(column);
    reason.Cells = where([](const SeenCell&) { return true; }).Count;
    reason.Empty = where([](const SeenCell& cell) { return cell.Text.empty(); });
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        reason.Fell[static_cast<std::size_t>(type - 1)] =
            where([type](const SeenCell& cell) { return Contains(cell.Before & ~cell.After, type); });
    }
    if (reason.Type != CsvTypeString) return reason;
    // What the column would be without its few misfits: the lowest type that at least half of the cells have.
    for (int type = CsvTypeBoolean; type < CsvTypeString; ++type) {
        const std::size_t count =
            where([type](const SeenCell& cell) { return Contains(cell.Fits, type); }).Count;
        if (count <= reason.Most || 2 * count < reason.Cells) continue;
        reason.Most = count;
        reason.MostType = type;
    }
    reason.Others = where([&](const SeenCell& cell) {
        const bool isOfMost = reason.MostType != CsvTypeUndefined && Contains(cell.Fits, reason.MostType);
        return !cell.Text.empty() && !isOfMost;
    });
    return reason;
}

std::string ReasonInWords(const ColumnReason& reason) {
    if (reason.Cells == 0) return Phrase("no row of data has this cell");
    if (reason.Type == CsvTypeString) return TextReasonInWords(reason);
    const int below = NearestBelow(reason);
    const CellGroup& end = FallOf(reason, below);
    if (reason.Type == CsvTypeBoolean || end.Count == 0)
        return Phrase("each of the {} cells fits", reason.Cells);
    return Phrase("{} in line {} is no {}", Quoted(end.FirstText), end.FirstLine, DataTypeInWords(below));
}

std::string Quoted(const std::u16string& text) {
    constexpr std::size_t Width = 40;
    return "\"" + OneLine(Utf16ToUtf8(text), Width) + "\"";
}

}  // namespace kelvarin::explain
