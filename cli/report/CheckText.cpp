#include <algorithm>

#include "cli/report/CheckReport.h"
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
    if (IsClean(result, findings)) {
        out << Phrase("clean: {} stored, every cell read", check::RowsInWords(result.Series->Count()));
    } else if (faults == 1) {
        out << (words.empty() ? Phrase("not clean: 1 fault") : Phrase("not clean: {}", words));
    } else {
        out << Phrase("not clean: {} faults", faults) << (words.empty() ? "" : "; ") << words;
    }
    if (result.Interrupted) out << "; " << Phrase("ended by Ctrl-C");
    out << "\n";
}

void WriteFindings(std::ostream& out, const std::vector<check::Finding>& findings) {
    for (const check::Finding& finding : findings) {
        if (finding.IsFault) {
            out << ReportLabel(Phrase("fault")) << Styled(Style::Warning, finding.Text) << "\n";
        } else {
            out << ReportLabel(Phrase("note")) << finding.Text << "\n";
        }
        if (!finding.Remedy.empty()) out << ReportLabel("") << "-> " << finding.Remedy << "\n";
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
                      Utf16ToUtf8(column.TypeName),
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

void WriteIntervals(TextTable& table, const check::TimeSeries& series) {
    const check::Rhythm rhythm = series.GetRhythm();
    const check::IntervalCounts& counts = series.Intervals();
    if (counts.Count() == 0) return;
    const std::string about = counts.IsExact() ? "" : " " + Phrase("(to 1/64)");
    if (counts.Shortest() == counts.Longest()) {
        table.AddRow({Phrase("interval"), Phrase("{} between all rows", check::SpanInWords(rhythm.Median))});
        return;
    }
    table.AddRow({Phrase("interval"), Phrase("{} (median)", check::SpanInWords(rhythm.Median)) + about});
    table.AddRow({Phrase("jitter"), Phrase("98 % of the intervals lie between {} and {}",
                                           check::SpanInWords(rhythm.Low), check::SpanInWords(rhythm.High))});
    table.AddRow({Phrase("extremes"), Phrase("{} to {}", check::SpanInWords(counts.Shortest()),
                                             check::SpanInWords(counts.Longest()))});
}

void WriteTime(std::ostream& out, const check::CheckResult& result) {
    const check::TimeSeries& series = *result.Series;
    if (series.Count() == 0) return;
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    table.AddRow({Phrase("rows"), std::to_string(series.Count())});
    table.AddRow({Phrase("first"), check::MomentInWords(result.Reading, series.First()) + "  " +
                                       Phrase("line {}", series.FirstLine())});
    table.AddRow({Phrase("last"), check::MomentInWords(result.Reading, series.Last()) + "  " +
                                      Phrase("line {}", series.LastLine())});
    table.AddRow({Phrase("span"), check::SpanInWords(series.Last() - series.First())});
    WriteIntervals(table, series);
    out << ReportHeading(Phrase("time axis")) << "\n";
    table.Write(out, "    ");
}

void WriteGaps(std::ostream& out, const check::CheckResult& result) {
    const check::Rhythm rhythm = result.Series->GetRhythm();
    if (rhythm.Gaps == 0 || result.Reading.IsInterval) return;
    out << ReportHeading(Phrase("longest gaps")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left});
    for (const check::TimeStep& step : result.Series->LongestSteps()) {
        if (step.Length() <= rhythm.GapAbove) break;
        table.AddRow({check::SpanInWords(step.Length()), Phrase("before line {}", step.Line),
                      Phrase("{} to {}", check::MomentInWords(result.Reading, step.From),
                             check::MomentInWords(result.Reading, step.To))});
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
                  check::FormatOptions(result.Reading))
        << "\n";
}

}  // namespace

bool IsClean(const check::CheckResult& result, const std::vector<check::Finding>& findings) {
    return result.Begun && !result.Failed && !result.Interrupted &&
           std::none_of(findings.begin(), findings.end(), [](const check::Finding& f) { return f.IsFault; });
}

void WriteCheckText(std::ostream& out, const std::string& file, const check::CheckResult& result,
                    const std::vector<check::Finding>& findings, const RejectsNote& rejects) {
    if (!result.Begun) return;
    out << Styled(Style::Heading, Utf16ToUtf8(PathFromNative(file))) << "\n";
    WriteVerdict(out, result, findings);
    WriteFindings(out, findings);
    WriteColumns(out, result);
    WriteTime(out, result);
    WriteGaps(out, result);
    WriteRejectsNote(out, result, rejects);
}

}  // namespace kelvarin::cli
