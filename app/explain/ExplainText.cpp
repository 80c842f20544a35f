#include <algorithm>

#include "app/TextTable.h"
#include "app/explain/ColumnReason.h"
#include "app/explain/ExplainReport.h"
#include "app/explain/FormatReason.h"
#include "app/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace {

constexpr std::size_t NameWidth = 40;
constexpr std::size_t HeadWidth = 10;

void WriteLine(std::ostream& out, const std::string& head, const std::string& text) {
    const std::size_t width = TextWidth(head);
    out << "  " << head;
    if (!text.empty()) out << std::string(width < HeadWidth ? HeadWidth - width : 1, ' ') << text;
    out << "\n";
}

void WriteColumns(std::ostream& out, const Explanation& explanation) {
    if (explanation.Columns.empty()) return;
    WriteLine(out, Phrase("columns"), "");
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    const std::size_t shown = std::min(explanation.Columns.size(), AnalysisRecord::MostColumns);
    for (std::size_t i = 0; i < shown; ++i) {
        const ColumnSummary& column = explanation.Columns[i];
        table.AddRow({std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      column.IsTimestamp ? Phrase("timestamp") : TypeInWords(column.Type),
                      column.IsTimestamp ? Phrase("gives the rows their time, by the settings")
                                         : ReasonInWords(ReasonFor(explanation.Record, i))});
    }
    table.Write(out, "    ");
    if (shown < explanation.Columns.size())
        out << "    " << Phrase("... and {} more columns", explanation.Columns.size() - shown) << "\n";
}

void WriteSurprises(std::ostream& out, const Explanation& explanation) {
    for (const Surprise& surprise : explanation.Surprises) {
        WriteLine(out, Phrase("warning"), surprise.Text);
        if (surprise.Remedy.empty() ||
            (explanation.IsAdvised() && surprise.Remedy == explanation.ProposedOptions()))
            continue;
        WriteLine(out, "", Phrase("Remedy: {}", surprise.Remedy));
    }
}

void WriteAdvice(std::ostream& out, const Explanation& explanation) {
    if (explanation.IsAdvised()) {
        const TableProposal& table = *explanation.Proposal;
        WriteLine(out, Phrase("advice"),
                  Phrase("A table seems to begin in line {} (rows: {}, cells in each: {}). To take it ({}):",
                         table.Format.FirstDataLine(), table.Rows, table.Cells, explanation.ProposalGives));
        WriteLine(out, "", explanation.ProposedOptions());
    }
    if (explanation.ReadsTimes)
        WriteLine(out, Phrase("times"), Phrase("no timestamp format is set; --guess-time proposes one"));
}

}  // namespace

void WriteExplanationText(std::ostream& out, const std::string& file, const Explanation& explanation) {
    out << Utf16ToUtf8(PathFromNative(file)) << "\n";
    WriteLine(out, Phrase("taken"), FormatTaken(explanation));
    std::string head = Phrase("why");
    for (const std::string& reason : FormatReasons(explanation)) {
        WriteLine(out, head, reason);
        head.clear();
    }
    const std::string second = RunnerUp(explanation.Record);
    if (!second.empty()) WriteLine(out, Phrase("runner-up"), second);
    WriteLine(out, Phrase("analysed"), RowsRead(explanation.Record));
    WriteColumns(out, explanation);
    WriteSurprises(out, explanation);
    WriteAdvice(out, explanation);
}
