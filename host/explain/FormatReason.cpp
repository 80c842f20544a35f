#include "host/explain/FormatReason.h"

#include <algorithm>

#include "host/Words.h"
#include "host/explain/ColumnReason.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {

namespace {

const SeparatorRun& RunOf(const SeenLine& line, int separator) {
    return line.Runs[static_cast<std::size_t>(separator)];
}

// "4 semicolons": the name stands behind the number as it is, since plurals differ by language.
std::string CountOf(std::int32_t count, int separator) {
    switch (separator) {
        case 0:
            return count == 1 ? Phrase("one semicolon") : Phrase("{} semicolons", count);
        case 1:
            return count == 1 ? Phrase("one comma") : Phrase("{} commas", count);
        case 2:
            return count == 1 ? Phrase("one tab") : Phrase("{} tabs", count);
        default:
            return count == 1 ? Phrase("one group of blanks") : Phrase("{} groups of blanks", count);
    }
}

// The counted line before the run that counts at the end, or null.
const SeenLine* LineBeforeRun(const AnalysisRecord& record, int separator) {
    const int start = RunOf(record.Counted.back(), separator).Start;
    const SeenLine* before = nullptr;
    for (const SeenLine& line : record.Counted) {
        if (line.Line < start) before = &line;
    }
    return before;
}

std::string RunInWords(const AnalysisRecord& record, int separator) {
    const SeenLine& last = record.Counted.back();
    const SeparatorRun& run = RunOf(last, separator);
    if (run.LastCount == 0)
        return Phrase("line {}, the last one looked at, has no {}", last.Line, SeparatorName(separator));
    std::string text = run.Start == last.Line ? Phrase("line {}, the last one looked at, has {}", last.Line,
                                                       CountOf(run.LastCount, separator))
                                              : Phrase("each line from {} to {} has {}", run.Start, last.Line,
                                                       CountOf(run.LastCount, separator));
    if (const SeenLine* const before = LineBeforeRun(record, separator))
        text += Phrase(", while line {} has {}", before->Line, RunOf(*before, separator).LastCount);
    return text;
}

std::string SeparatorReason(const AnalysisRecord& record) {
    const int winner = record.Separator;
    bool isTied = false;
    for (int other = 0; other < SeparatorsCounted; ++other) {
        isTied |= other != winner && RunOf(record.Counted.back(), other).Start == record.RunStart;
    }
    const std::string run = RunInWords(record, winner);
    if (!isTied)
        return Phrase("The {} is regular from the earliest line on: {}.", SeparatorName(winner), run);
    if (RunOf(record.Counted.back(), winner).LastCount == 0)
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

}  // namespace

std::vector<std::string> FormatReasons(const Explanation& explanation) {
    const AnalysisRecord& record = explanation.Record;
    if (record.Counted.empty())
        return {Phrase("The first lines are blank, so nothing speaks for a separator.")};
    std::vector<std::string> reasons;
    if (!explanation.FollowsDetection) {
        Reading detected = explanation.Format;
        detected.Separator = record.Separator;
        detected.MergeSeparators = TableFormat{record.Separator}.Merges();
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
        if (separator == record.Separator || RunOf(last, separator).LastCount == 0) continue;
        if (second < 0 || RunOf(last, separator).Start < RunOf(last, second).Start) second = separator;
    }
    if (second < 0)
        return Phrase("none, no other separator occurs in line {}, the last one looked at", last.Line);
    const SeparatorRun& run = RunOf(last, second);
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
    switch (record.End) {
        case TableEnd::EmptyLine:
            return text + Phrase("; line {} is empty and ends the analysis", record.EndLine);
        case TableEnd::EnoughRows:
            return text + Phrase("; more are not looked at");
        case TableEnd::EndOfFile:
            return text + Phrase("; there the file ends");
    }
    return text;
}

}  // namespace kelvarin::explain
