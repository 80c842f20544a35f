#include <algorithm>

#include "host/Words.h"
#include "host/explain/ColumnReason.h"
#include "host/explain/Surprises.h"
#include "host/language/Phrase.h"

namespace kelvarin::explain {

namespace {

// The advised options, else another remedy.
std::string RemedyOf(const Explanation& explanation, const std::string& other) {
    return explanation.IsAdvised() ? explanation.ProposedOptions() : other;
}

// Says that the lines from `first` on count for nothing because of the odd line `breaker`.
void AddLateLine(const Explanation& explanation, int first, const SeenLine& breaker, int separator,
                 std::vector<Surprise>& found) {
    const std::int32_t count = breaker.Runs[static_cast<std::size_t>(separator)].LastCount;
    found.push_back({"late-line-moves-the-table",
                     Phrase("The lines from {} on look like the table's, but line {} has another count of "
                            "the separator {}, {}: {}. One such line "
                            "among the first hundred moves the table's beginning below, here to line {}.",
                            first, breaker.Line, SeparatorName(separator), count, Quoted(breaker.Text),
                            explanation.Record.RunStart),
                     RemedyOf(explanation, Phrase("Delete line {} in a copy of the file.", breaker.Line))});
}

// One odd line late among the first hundred makes every run before it count for nothing.
void FindLateLine(const Explanation& explanation, std::vector<Surprise>& found) {
    const AnalysisRecord& record = explanation.Record;
    if (!explanation.Proposal || !explanation.FollowsDetection) return;
    const int first = explanation.Proposal->Format.FirstDataLine();
    const int separator = explanation.Proposal->Format.Separator;
    if (first >= record.RunStart || (!explanation.IsAdvised() && separator != record.Separator)) return;
    const auto place = static_cast<std::size_t>(separator);
    for (std::size_t i = 1; i < record.Counted.size(); ++i) {
        const SeenLine& line = record.Counted[i];
        const bool isOdd = line.Runs[place].LastCount != record.Counted[i - 1].Runs[place].LastCount;
        if (line.Line > first && isOdd) return AddLateLine(explanation, first, line, separator, found);
    }
}

// Separators of a line that its neighbour has and that an open quote keeps from being counted.
std::int32_t HiddenSeparators(const SeenLine& line, const SeenLine& neighbour, std::size_t separator) {
    constexpr char16_t Characters[] = {u';', u',', u'\t', u' '};
    const auto count = [&](char16_t c) { return std::count(line.Text.begin(), line.Text.end(), c); };
    constexpr std::u16string_view Quotes = u"'\"";
    const bool isOpen =
        std::any_of(Quotes.begin(), Quotes.end(), [&](char16_t quote) { return count(quote) % 2 == 1; });
    const std::int32_t usual = neighbour.Runs[separator].LastCount;
    return isOpen && count(Characters[separator]) == usual ? usual - line.Runs[separator].LastCount : 0;
}

void FindHiddenSeparators(const Explanation& explanation, std::vector<Surprise>& found) {
    const std::vector<SeenLine>& lines = explanation.Record.Counted;
    for (int separator = 0; separator < SeparatorsCounted; ++separator) {
        for (std::size_t i = 0; lines.size() > 1 && i < lines.size(); ++i) {
            const SeenLine& neighbour = lines[i + 1 < lines.size() ? i + 1 : i - 1];
            const std::int32_t hidden =
                HiddenSeparators(lines[i], neighbour, static_cast<std::size_t>(separator));
            if (hidden <= 0) continue;
            found.push_back({"quote-hides-separators",
                             Phrase("In line {} an apostrophe or a quote without its partner keeps {} of the "
                                    "separator {} from being counted: {}.",
                                    lines[i].Line, hidden, SeparatorName(separator), Quoted(lines[i].Text)),
                             RemedyOf(explanation, Phrase("Remove it from the file, or double it."))});
            return;
        }
    }
}

// The advice takes the same separator and another line.
void FindWrongLine(const Explanation& explanation, std::vector<Surprise>& found) {
    if (!explanation.IsAdvised() || explanation.Proposal->Format.Separator != explanation.Format.Separator)
        return;
    const AnalysisRecord& record = explanation.Record;
    const TableFormat& proposed = explanation.Proposal->Format;
    const int data = explanation.Format.FirstDataLine;
    const bool hasHeader = explanation.Format.HeaderLine != 0;
    const std::string remedy = explanation.ProposedOptions();
    if (proposed.Header && !hasHeader && proposed.FirstLine == data) {
        found.push_back(
            {"names-taken-for-data",
             Phrase("Line {} seems to hold the columns' names, but is taken for the first row of data: {}.",
                    data, Quoted(record.TextOf(data))),
             remedy});
    } else if (proposed.Header && !hasHeader && proposed.FirstDataLine() == data) {
        found.push_back({"names-skipped",
                         Phrase("Line {} seems to hold the columns' names, but is skipped, since it has not "
                                "as many separators as the rows: {}.",
                                proposed.FirstLine, Quoted(record.TextOf(proposed.FirstLine))),
                         remedy});
    } else if (data < proposed.FirstDataLine()) {
        found.push_back(
            {"preamble-taken-for-data",
             Phrase(
                 "Line {} has enough numbers to count as data, but the table seems to begin in line {}: {}.",
                 data, proposed.FirstDataLine(), Quoted(record.TextOf(data))),
             remedy});
    }
}

void FindEmptyLine(const Explanation& explanation, std::vector<Surprise>& found) {
    const AnalysisRecord& record = explanation.Record;
    if (record.End != TableEnd::EmptyLine) return;
    int lastKnown = record.Counted.empty() ? 0 : record.Counted.back().Line;
    if (explanation.Proposal) lastKnown = std::max(lastKnown, explanation.Proposal->LastLine);
    if (lastKnown <= record.EndLine) return;
    if (record.DataRows() == 0) {
        found.push_back(
            {"empty-line-ends-the-table",
             Phrase("Line {} is empty and ends the analysis before the first row of data, so no "
                    "column gets a type.",
                    record.EndLine),
             RemedyOf(explanation, Phrase("Delete line {} in a copy of the file.", record.EndLine))});
        return;
    }
    found.push_back({"empty-line-ends-the-table",
                     Phrase("Line {} is empty and ends the analysis: the types are settled by the {} rows "
                            "above it alone. The import itself goes on behind it.",
                            record.EndLine, record.DataRows()),
                     RemedyOf(explanation, {})});
}

void FindLostNames(const Explanation& explanation, std::vector<Surprise>& found) {
    if (!explanation.Proposal || !explanation.Proposal->NamesAreLost()) return;
    const TableProposal& table = *explanation.Proposal;
    const int data = table.Format.FirstDataLine();
    if (!explanation.IsAdvised() && data != explanation.Format.FirstDataLine) return;
    const bool isOne = table.NamesLine + 1 == data - 1;
    found.push_back(
        {"names-not-above-the-data",
         Phrase("The names seem to stand in line {}, but they are taken only from the line directly above "
                "the first row, {}: {}.",
                table.NamesLine, data, Quoted(table.Names)),
         isOne ? Phrase("Delete line {} in a copy of the file.", data - 1)
               : Phrase("Delete the lines {} to {} in a copy of the file.", table.NamesLine + 1, data - 1)});
}

// Cells beyond the first line's are dropped.
void FindWideRows(const Explanation& explanation, std::vector<Surprise>& found) {
    const AnalysisRecord& record = explanation.Record;
    if (record.Rows.empty()) return;
    const std::size_t columns = record.Rows.front().CellCount;
    CellGroup lost;
    for (const SeenRow& row : record.Rows) {
        for (std::size_t i = columns; i < row.Cells.size(); ++i) {
            if (row.Cells[i].Text.empty()) continue;
            lost.Add(row.Line, row.Cells[i].Text);
            break;
        }
    }
    if (lost.Count == 0) return;
    const std::string where = Phrase("{} in line {}", Quoted(lost.FirstText), lost.FirstLine);
    found.push_back({"more-cells-than-columns",
                     lost.Count == 1 ? Phrase("A row has more than the {} cells of the table's first line; "
                                              "the surplus is not imported: {}.",
                                              columns, where)
                                     : Phrase("{} rows have more than the {} cells of the table's first "
                                              "line; the surplus is not imported, first {}.",
                                              lost.Count, columns, where),
                     RemedyOf(explanation, Phrase("Give line {} as many separators as the longest row.",
                                                  record.FirstLine))});
}

}  // namespace

void FindTableSurprises(const Explanation& explanation, std::vector<Surprise>& found) {
    FindLateLine(explanation, found);
    FindHiddenSeparators(explanation, found);
    FindWrongLine(explanation, found);
    FindEmptyLine(explanation, found);
    FindLostNames(explanation, found);
    FindWideRows(explanation, found);
}

std::vector<Surprise> FindSurprises(const Explanation& explanation) {
    std::vector<Surprise> found;
    FindTableSurprises(explanation, found);
    FindColumnSurprises(explanation, found);
    return found;
}

}  // namespace kelvarin::explain
