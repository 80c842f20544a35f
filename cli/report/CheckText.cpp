#include <algorithm>

#include "cli/report/CheckReport.h"
#include "cli/report/Options.h"
#include "cli/report/TextLayout.h"
#include "host/check/CheckWords.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

namespace {

constexpr std::size_t MostColumnsShown = 40;
constexpr std::size_t NameWidth = 40;
constexpr std::size_t CellWidth = 24;

// Joins what is wrong in a few words.
std::string FaultsInWords(const check::CheckResult& result) {
    std::string words;
    const auto add = [&](const std::string& more) { words += (words.empty() ? "" : ", ") + more; };
    if (result.Dropped.Count() != 0)
        add(Phrase("{} of {} rows dropped", result.Dropped.Count(), result.Lines - result.BlankLines));
    const std::uint64_t cells = result.RefusedCells();
    if (cells != 0) add(Phrase("{} refused", check::CellsInWords(cells)));
    return words;
}

void WriteVerdict(std::ostream& out, const check::CheckResult& result,
                  const std::vector<check::Finding>& findings) {
    out << ReportLabel(Phrase("verdict"));
    const auto faults =
        std::count_if(findings.begin(), findings.end(), [](const check::Finding& f) { return f.IsFault; });
    const std::string words = FaultsInWords(result);
    if (check::IsClean(result, findings)) {
        out << Phrase("clean: {} stored, every cell read", check::RowsInWords(result.StoredRows()));
    } else if (faults == 1) {
        out << (words.empty() ? Phrase("not clean: 1 fault") : Phrase("not clean: {}", words));
    } else {
        out << Phrase("not clean: {} faults", faults) << (words.empty() ? "" : "; ") << words;
    }
    if (result.Interrupted) out << "; " << Phrase("ended by Ctrl-C");
    out << "\n";
}

void WriteFindings(std::ostream& out, const check::CheckResult& result,
                   const std::vector<check::Finding>& findings) {
    for (const check::Finding& finding : findings) {
        if (finding.IsFault) {
            out << ReportLabel(Phrase("fault")) << Styled(Style::Warning, finding.Text) << "\n";
        } else {
            out << ReportLabel(Phrase("note")) << finding.Text << "\n";
        }
        const std::string advice = AdviceText(result, finding);
        if (!advice.empty()) out << ReportLabel("") << "-> " << advice << "\n";
    }
}

std::string PlaceText(const check::FilePlace& place) {
    return Phrase("line {}", place.Line) + " " + check::Quoted(place.Text, CellWidth);
}

void WriteColumns(std::ostream& out, const check::CheckResult& result) {
    using Align = TextTable::Align;
    TextTable table(
        {Align::Right, Align::Left, Align::Left, Align::Right, Align::Left, Align::Left, Align::Right});
    std::size_t shown = 0;
    std::size_t others = 0;
    for (const check::ColumnCheck& column : result.Columns) {
        const check::FilePlaces& refused = column.Refused;
        if (refused.Count() == 0 && column.Empty == 0) continue;
        if (shown == MostColumnsShown) {
            ++others;
            continue;
        }
        ++shown;
        const bool any = refused.Count() != 0;
        table.AddRow({std::to_string(column.Column), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      any ? DataTypeInWords(column.Type) : std::string(),
                      any ? Phrase("{} refused", refused.Count()) : std::string(),
                      any ? PlaceText(refused.FirstFew().front()) : std::string(),
                      refused.Count() > 1 ? "... " + PlaceText(refused.Last()) : std::string(),
                      column.Empty != 0 ? Phrase("{} empty", column.Empty) : std::string()});
    }
    if (shown == 0) return;
    out << ReportHeading(Phrase("columns")) << "\n";
    table.Write(out, "    ");
    if (others != 0) out << "    " << Phrase("... and {} more columns", others) << "\n";
}

void WriteIntervals(TextTable& table, const check::IntervalStatistics& intervals) {
    if (intervals.Count == 0) return;
    const std::string median = check::SpanInWords(intervals.Median);
    if (intervals.Shortest == intervals.Longest) {
        table.AddRow({Phrase("interval"), Phrase("{} between all rows", median)});
        return;
    }
    const std::string about = intervals.IsExact ? "" : " " + Phrase("(to 1/64)");
    table.AddRow({Phrase("interval"), Phrase("{} (median)", median) + about});
    table.AddRow(
        {Phrase("jitter"), Phrase("98 % of the intervals lie between {} and {}",
                                  check::SpanInWords(intervals.Low), check::SpanInWords(intervals.High))});
    table.AddRow({Phrase("extremes"), Phrase("{} to {}", check::SpanInWords(intervals.Shortest),
                                             check::SpanInWords(intervals.Longest))});
}

void WriteTime(std::ostream& out, const check::CheckResult& result) {
    const check::TimeSeries& series = *result.Series;
    if (series.Count() == 0) return;
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    table.AddRow({Phrase("rows"), std::to_string(series.Count())});
    table.AddRow({Phrase("first"), check::MomentInWords(result.Format, series.First()) + "  " +
                                       Phrase("line {}", series.FirstLine())});
    table.AddRow({Phrase("last"), check::MomentInWords(result.Format, series.Last()) + "  " +
                                      Phrase("line {}", series.LastLine())});
    table.AddRow({Phrase("span"), check::SpanInWords(series.Last() - series.First())});
    WriteIntervals(table, series.Intervals());
    out << ReportHeading(Phrase("time axis")) << "\n";
    table.Write(out, "    ");
}

void WriteGaps(std::ostream& out, const check::CheckResult& result) {
    const check::IntervalStatistics intervals = result.Series->Intervals();
    if (intervals.Gaps == 0 || result.Format.TimeSetting == TimeInterval) return;
    out << ReportHeading(Phrase("longest gaps")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left});
    for (const check::TimeStep& step : result.Series->LongestSteps()) {
        if (step.Length() <= intervals.GapAbove) break;
        table.AddRow({check::SpanInWords(step.Length()), Phrase("before line {}", step.Line),
                      Phrase("{} to {}", check::MomentInWords(result.Format, step.From),
                             check::MomentInWords(result.Format, step.To))});
    }
    table.Write(out, "    ");
}

void WriteRejectsNote(std::ostream& out, const check::CheckResult& result, const RejectsNote& rejects) {
    if (rejects.File.empty() || !rejects.Failure.empty()) return;
    const std::string name = Utf16ToUtf8(PathFromNative(rejects.File));
    out << ReportLabel(Phrase("rejects")) << Phrase("{} in {}", check::RowsInWords(rejects.Rows), name)
        << "\n";
    if (rejects.Rows == 0) return;
    out << ReportLabel("") << "-> "
        << Phrase("once mended, import it with the same settings and these: {}",
                  OptionsText(check::TableSettings(result.Format)))
        << "\n";
}

}  // namespace

std::string AdviceText(const check::CheckResult& result, const check::Finding& finding) {
    if (finding.Advice.Action != RemedyAction::ReverseRows) return RemedyText(finding.Advice);
    const int head = result.Format.FirstDataLine - 1;
    return finding.Advice.Text + ", " +
           Phrase("where there are head, tail and tac: (head -n {} FILE; tail -n +{} FILE | tac) > REVERSED",
                  head, head + 1);
}

void WriteCheckText(std::ostream& out, const std::string& file, const check::CheckResult& result,
                    const std::vector<check::Finding>& findings, const RejectsNote& rejects) {
    if (!result.Begun) return;
    out << Styled(Style::Heading, Utf16ToUtf8(PathFromNative(file))) << "\n";
    WriteVerdict(out, result, findings);
    WriteFindings(out, result, findings);
    WriteColumns(out, result);
    WriteTime(out, result);
    WriteGaps(out, result);
    WriteRejectsNote(out, result, rejects);
}

}  // namespace kelvarin::cli
