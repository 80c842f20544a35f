#include <algorithm>

#include "cli/report/CheckReport.h"
#include "cli/report/GuessReport.h"
#include "cli/report/Options.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
constexpr std::size_t MostColumnsListed = 40;
constexpr std::size_t CellWidth = 24;

std::string FaultsInWords(const check::CheckResult& result) {
    std::string words, cells;
    if (result.Dropped.Count() != 0)
        words = Phrase("{} of {} rows dropped", result.Dropped.Count(), result.Lines - result.BlankLines);
    if (result.RefusedCells() != 0) cells = Phrase("{} refused", CellsInWords(result.RefusedCells()));
    return words.empty() || cells.empty() ? words + cells : words + ", " + cells;
}

void WriteVerdict(ReportStream out, const CheckReport& report) {
    out << ReportLabel(Phrase("verdict"));
    const auto faults = std::count_if(report.Findings.begin(), report.Findings.end(),
                                      [](const check::Finding& finding) { return finding.IsFault; });
    const std::string words = FaultsInWords(report.Result);
    if (check::IsClean(report.Result, report.Findings)) {
        out << Phrase("clean: {} stored, every cell read", RowsInWords(report.Result.StoredRows()));
    } else if (faults == 1) {
        out << (words.empty() ? Phrase("not clean: 1 fault") : Phrase("not clean: {}", words));
    } else {
        out << Phrase("not clean: {} faults", faults) << (words.empty() ? "" : "; ") << words;
    }
    if (report.Result.Interrupted) out << "; " << Phrase("ended by Ctrl-C");
    out << "\n";
}

void WriteFindings(ReportStream out, const CheckReport& report) {
    for (const check::Finding& finding : report.Findings) {
        out << ReportLabel(finding.IsFault ? Phrase("fault") : Phrase("note"))
            << Styled(finding.IsFault ? Style::Warning : Style::Plain, finding.Text) << "\n";
        const std::string advice = RemedyText(finding.Advice);
        if (!advice.empty()) out << ReportLabel("") << "-> " << advice << "\n";
    }
}

std::string PlaceText(const check::FilePlace& place) {
    return Phrase("line {}", place.Line) + " " + Quoted(place.Text, CellWidth);
}

void WriteColumns(ReportStream out, const check::CheckResult& result) {
    constexpr auto Left = TextTable::Align::Left, Right = TextTable::Align::Right;
    TextTable table({Right, Left, Left, Right, Left, Left, Right});
    std::size_t count = 0;
    for (const check::ColumnCheck& column : result.Columns) {
        const check::FilePlaces& refused = column.Refused;
        const bool any = refused.Count != 0;
        if ((!any && column.Empty == 0) || ++count > MostColumnsListed) continue;
        table.AddRow({std::to_string(column.Column), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      any ? DataTypeInWords(column.Type) : "", any ? Phrase("{} refused", refused.Count) : "",
                      any ? PlaceText(refused.FirstFew.front()) : "",
                      refused.Count > 1 ? "... " + PlaceText(refused.Last) : "",
                      column.Empty != 0 ? Phrase("{} empty", column.Empty) : ""});
    }
    if (count == 0) return;
    out << ReportHeading(Phrase("columns")) << "\n";
    table.Write(out, "    ");
    if (count > MostColumnsListed)
        out << "    " << Phrase("... and {} more columns", count - MostColumnsListed) << "\n";
}

void WriteIntervals(TextTable& table, const check::IntervalStatistics& intervals) {
    if (intervals.Count == 0) return;
    const std::string median = SpanInWords(intervals.Median);
    if (intervals.Shortest == intervals.Longest) {
        table.AddRow({Phrase("interval"), Phrase("{} between all rows", median)});
        return;
    }
    const std::string about = intervals.IsExact ? "" : " " + Phrase("(to 1/64)");
    table.AddRow({Phrase("interval"), Phrase("{} (median)", median) + about});
    table.AddRow({Phrase("jitter"), Phrase("98 % of the intervals lie between {} and {}",
                                           SpanInWords(intervals.Low), SpanInWords(intervals.High))});
    table.AddRow({Phrase("extremes"),
                  Phrase("{} to {}", SpanInWords(intervals.Shortest), SpanInWords(intervals.Longest))});
}

void WriteTime(ReportStream out, const check::CheckResult& result) {
    const check::TimeSeries& series = *result.Series;
    if (series.Count == 0) return;
    const auto moment = [&](std::int64_t time, std::uint64_t line) {
        return MomentInWords(result.Format, time) + "  " + Phrase("line {}", line);
    };
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    table.AddRow({Phrase("rows"), std::to_string(series.Count)});
    table.AddRow({Phrase("first"), moment(series.First, series.FirstLine)});
    table.AddRow({Phrase("last"), moment(series.Last, series.LastLine)});
    table.AddRow({Phrase("span"), SpanInWords(series.Last - series.First)});
    WriteIntervals(table, series.Intervals());
    out << ReportHeading(Phrase("time axis")) << "\n";
    table.Write(out, "    ");
}

void WriteGaps(ReportStream out, const check::CheckResult& result) {
    const check::IntervalStatistics intervals = result.Series->Intervals();
    if (intervals.Gaps == 0 || result.Format.TimeSetting == TimeInterval) return;
    out << ReportHeading(Phrase("longest gaps")) << "\n";
    TextTable table({TextTable::Align::Right, TextTable::Align::Left, TextTable::Align::Left});
    for (const check::TimeStep& step : result.Series->LongestSteps) {
        if (step.Length() <= intervals.GapAbove) break;
        table.AddRow({SpanInWords(step.Length()), Phrase("before line {}", step.Line),
                      Phrase("{} to {}", MomentInWords(result.Format, step.From),
                             MomentInWords(result.Format, step.To))});
    }
    table.Write(out, "    ");
}

void WriteRejectsNote(ReportStream out, const CheckReport& report) {
    if (report.RejectsFile.empty() || !report.RejectsFailure.empty()) return;
    out << ReportLabel(Phrase("rejects"))
        << Phrase("{} in {}", RowsInWords(report.RejectedRows), report.RejectsFile) << "\n";
    if (report.RejectedRows == 0) return;
    out << ReportLabel("") << "-> "
        << Phrase("once mended, import it with the same settings and these: {}",
                  OptionsText(check::TableSettings(report.Result.Format)))
        << "\n";
}
}  // namespace

void WriteCheckText(ReportStream out, const CheckReport& report) {
    if (!report.Result.Begun) return;
    out << Styled(Style::Heading, report.File) << "\n";
    if (report.Guess != nullptr) WriteGuessText(out, *report.Guess);
    WriteVerdict(out, report);
    WriteFindings(out, report);
    WriteColumns(out, report.Result);
    WriteTime(out, report.Result);
    WriteGaps(out, report.Result);
    WriteRejectsNote(out, report);
}
}  // namespace kelvarin::cli
