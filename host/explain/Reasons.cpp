// Why this separator, this first line and this header were taken, and why the columns have their types, in
// sentences.
#include <algorithm>

#include "host/Words.h"
#include "host/explain/Explanation.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {
namespace {
// "4 semicolons".
std::string CountOf(std::int32_t count, int separator) {
    const std::string one[] = {Phrase("one semicolon"), Phrase("one comma"), Phrase("one tab"),
                               Phrase("one group of blanks")};
    const std::string many[] = {Phrase("{} semicolons", count), Phrase("{} commas", count),
                                Phrase("{} tabs", count), Phrase("{} groups of blanks", count)};
    return (count == 1 ? one : many)[separator];
}

std::string RunInWords(const AnalysisRecord& record, int separator) {
    const SeenLine& last = record.Counted.back();
    const SeparatorRun& run = last.Run(separator);
    if (run.LastCount == 0)
        return Phrase("line {}, the last one looked at, has no {}", last.Line, SeparatorName(separator));
    std::string text = run.Start == last.Line ? Phrase("line {}, the last one looked at, has {}", last.Line,
                                                       CountOf(run.LastCount, separator))
                                              : Phrase("each line from {} to {} has {}", run.Start, last.Line,
                                                       CountOf(run.LastCount, separator));
    const auto first = std::find_if(record.Counted.begin(), record.Counted.end(),
                                    [&](const SeenLine& line) { return line.Line >= run.Start; });
    if (first == record.Counted.begin()) return text;
    const SeenLine& before = *std::prev(first);
    return text + Phrase(", while line {} has {}", before.Line, before.Run(separator).LastCount);
}

std::string SeparatorReason(const AnalysisRecord& record) {
    const int winner = record.Separator;
    bool isTied = false;
    for (int other = 0; other < SeparatorsCounted; ++other) {
        isTied |= other != winner && record.Counted.back().Run(other).Start == record.RunStart;
    }
    const std::string run = RunInWords(record, winner);
    if (!isTied)
        return Phrase("The {} is regular from the earliest line on: {}.", SeparatorName(winner), run);
    if (record.Counted.back().Run(winner).LastCount == 0)
        return Phrase("No separator is regular up to the end ({}), so the first in the order is taken.", run);
    return Phrase("The {} is as regular as another one and comes before it in the order: {}.",
                  SeparatorName(winner), run);
}

std::string TestInWords(const TestedLine& line) {
    return Phrase("{} of {} cells, {} needed", line.Numbers, line.Cells, line.Needed);
}

std::string HeaderReason(const AnalysisRecord& record) {
    const auto closest =
        std::max_element(record.Tested.begin(), record.Tested.end(),
                         [](const TestedLine& a, const TestedLine& b) { return a.Numbers < b.Numbers; });
    if (closest == record.Tested.end()) return Phrase("No line from there on was tested for data.");
    const TestedLine& last = record.Tested.back();
    if (!last.IsData() && record.Tested.size() == 1)
        return Phrase(
            "Line {} has not enough numbers for data ({}) and none follows, so the table begins there "
            "without a header.",
            last.Line, TestInWords(last));
    if (!last.IsData())
        return Phrase(
            "None of the lines {} to {} has enough numbers for data (the best, line {}: {}), so the table "
            "begins there without a header.",
            record.Tested.front().Line, last.Line, closest->Line, TestInWords(*closest));
    if (!record.DetectedHeader)
        return Phrase("Line {} has enough numbers for data ({}), so there is no header: {}.", last.Line,
                      TestInWords(last), Quoted(record.TextOf(last.Line)));
    const std::u16string& text = record.TextOf(record.DetectedFirstLine);
    if (text.empty())
        return Phrase(
            "Line {} is the first with enough numbers for data ({}), so line {} above it counts as the "
            "header, though it is blank.",
            last.Line, TestInWords(last), record.DetectedFirstLine);
    return Phrase(
        "Line {} is the first with enough numbers for data ({}), so line {} above it is the header: {}.",
        last.Line, TestInWords(last), record.DetectedFirstLine, Quoted(text));
}

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

std::vector<std::string> FormatReasons(const Explanation& explanation) {
    const AnalysisRecord& record = explanation.Record;
    if (record.Counted.empty())
        return {Phrase("The first lines are blank, so nothing speaks for a separator.")};
    std::vector<std::string> reasons;
    if (!explanation.FollowsDetection) {
        Reading detected = explanation.Format;
        detected.Separator = record.Separator;
        detected.MergeSeparators = record.Separator == SeparatorSpace;
        detected.HeaderLine = record.DetectedHeader ? record.DetectedFirstLine : 0;
        detected.FirstDataLine = record.DetectedFirstLine + (record.DetectedHeader ? 1 : 0);
        reasons.push_back(
            Phrase("The settings say so; without them it would be: {}.", FormatInWords(detected)));
    }
    reasons.push_back(SeparatorReason(record));
    reasons.push_back(HeaderReason(record));
    return reasons;
}

std::string RunnerUp(const AnalysisRecord& record) {
    if (record.Counted.empty()) return {};
    const SeenLine& last = record.Counted.back();
    int second = -1;
    for (int separator = 0; separator < SeparatorsCounted; ++separator) {
        if (separator == record.Separator || last.Run(separator).LastCount == 0) continue;
        if (second < 0 || last.Run(separator).Start < last.Run(second).Start) second = separator;
    }
    if (second < 0)
        return Phrase("none, no other separator occurs in line {}, the last one looked at", last.Line);
    const SeparatorRun& run = last.Run(second);
    return Phrase("{}: {}; it would give {} columns from line {} on", SeparatorName(second),
                  RunInWords(record, second), run.LastCount + 1, run.Start);
}

std::string RowsRead(const AnalysisRecord& record) {
    const std::size_t rows = record.DataRows();
    const int last = rows == 0 ? 0 : record.Rows.back().Line;
    std::string text = rows == 0   ? Phrase("no row of data")
                       : rows == 1 ? Phrase("one row, line {}", last)
                                   : Phrase("{} rows, lines {} to {}", rows,
                                            record.Rows[record.Rows.size() - rows].Line, last);
    if (record.End == TableEnd::EmptyLine)
        return text + Phrase("; line {} is empty and ends the analysis", record.EndLine);
    return text + (record.End == TableEnd::EnoughRows ? Phrase("; more are not looked at")
                                                      : Phrase("; there the file ends"));
}

ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column) {
    ColumnReason reason;
    const auto where = [&](auto passes) { return record.CellsWhere(column, passes); };
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
