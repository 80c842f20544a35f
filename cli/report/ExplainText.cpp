#include <algorithm>
#include <sstream>

#include "cli/report/ExplainReport.h"
#include "cli/report/TextLayout.h"
#include "cli/report/TextReport.h"
#include "host/explain/ColumnReason.h"
#include "host/explain/FormatReason.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

namespace {

constexpr std::size_t NameWidth = 40;

// A line of the report, or several where the terminal is narrower.
void WriteLine(std::ostream& out, const std::string& label, const std::string& text) {
    const std::size_t indent = TextWidth(ReportLabel(""));
    const std::size_t width = OutputWidth();
    std::size_t column = indent;
    out << label;
    std::istringstream words(text);
    for (std::string word; std::getline(words, word, ' ');) {
        const std::size_t needed = TextWidth(word) + (column == indent ? 0 : 1);
        if (column != indent && width > indent && column + needed > width) {
            out << "\n" << ReportLabel("");
            column = indent;
        }
        out << (column == indent ? "" : " ") << word;
        column += needed;
    }
    out << "\n";
}

void WriteColumns(std::ostream& out, const explain::Explanation& explanation) {
    if (explanation.Columns.empty()) return;
    out << ReportHeading(Phrase("columns")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    const std::size_t shown = std::min(explanation.Columns.size(), explain::AnalysisRecord::MostColumns);
    for (std::size_t i = 0; i < shown; ++i) {
        const ColumnSummary& column = explanation.Columns[i];
        table.AddRow({std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      column.IsTimestamp ? Phrase("timestamp") : DataTypeInWords(column.Type),
                      column.IsTimestamp
                          ? Phrase("gives the rows their time, by the settings")
                          : explain::ReasonInWords(explain::ReasonFor(explanation.Record, i))});
    }
    table.Write(out, "    ");
    if (shown < explanation.Columns.size())
        out << "    " << Phrase("... and {} more columns", explanation.Columns.size() - shown) << "\n";
}

void WriteSurprises(std::ostream& out, const explain::Explanation& explanation) {
    for (const explain::Surprise& surprise : explanation.Surprises) {
        WriteLine(out, ReportLabel(Phrase("warning")), surprise.Text);
        if (surprise.Remedy.empty() ||
            (explanation.IsAdvised() && surprise.Remedy == explanation.ProposedOptions()))
            continue;
        WriteLine(out, ReportLabel(""), Phrase("Remedy: {}", surprise.Remedy));
    }
}

void WriteAdvice(std::ostream& out, const explain::Explanation& explanation) {
    if (explanation.IsAdvised()) {
        const explain::TableProposal& table = *explanation.Proposal;
        WriteLine(out, ReportLabel(Phrase("advice")),
                  Phrase("A table seems to begin in line {} (rows: {}, cells in each: {}). To take it ({}):",
                         table.Format.FirstDataLine(), table.Rows, table.Cells, explanation.ProposalGives));
        out << ReportLabel("") << explanation.ProposedOptions() << "\n";
    }
    if (explanation.ReadsTimes)
        WriteLine(out, ReportLabel(Phrase("times")),
                  Phrase("no timestamp format is set; --guess-time proposes one"));
}

}  // namespace

void WriteExplanationText(std::ostream& out, const std::string& file,
                          const explain::Explanation& explanation) {
    out << Styled(Style::Heading, Utf16ToUtf8(PathFromNative(file))) << "\n";
    WriteLine(out, ReportLabel(Phrase("taken")), FormatInWords(explanation.Format));
    std::string label = ReportLabel(Phrase("why"));
    for (const std::string& reason : explain::FormatReasons(explanation)) {
        WriteLine(out, label, reason);
        label = ReportLabel("");
    }
    const std::string second = explain::RunnerUp(explanation.Record);
    if (!second.empty()) WriteLine(out, ReportLabel(Phrase("runner-up")), second);
    WriteLine(out, ReportLabel(Phrase("analysed")), explain::RowsRead(explanation.Record));
    WriteColumns(out, explanation);
    WriteSurprises(out, explanation);
    WriteAdvice(out, explanation);
}

}  // namespace kelvarin::cli
