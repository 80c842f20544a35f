#include "host/explain/Explanation.h"

#include <algorithm>

#include "host/explain/Surprises.h"
#include "host/language/Phrase.h"

namespace kelvarin::explain {

namespace {

// Columns whose type is neither text nor unknown.
std::size_t TypedColumns(const AnalysisRecord& record) {
    if (record.Rows.empty()) return 0;
    const std::size_t columns = std::min(record.Rows.front().CellCount, AnalysisRecord::MostColumns);
    std::size_t typed = 0;
    for (std::size_t column = 0; column < columns; ++column) {
        const int type = record.TypeOf(column);
        typed += type != NoType && type != TextType;
    }
    return typed;
}

// How the module reads the proposal; empty if it reads fewer values than from the table that it took, unless
// that is but a scrap, or if the proposal can't be had.
std::string TryProposal(const ModuleLoader& module, const std::u16string& path, const TableFormat& format,
                        const AnalysisRecord& taken) {
    AnalysisRecord tried;
    if (!TryFormat(module, path, format, tried) || tried.DataRows() == 0) return {};
    const std::size_t typed = TypedColumns(tried);
    const bool readsFewer = typed * tried.Rows.size() < TypedColumns(taken) * taken.Rows.size();
    if (readsFewer && 2 * taken.Rows.size() > tried.Rows.size()) return {};
    const std::size_t columns = tried.Rows.front().CellCount;
    return Phrase("columns: {}, of them text: {}", columns,
                  std::min(columns, AnalysisRecord::MostColumns) - typed);
}

TableFormat FormatOf(const Reading& summary) {
    return {summary.Separator, summary.HeaderLine != 0 ? summary.HeaderLine : summary.FirstDataLine,
            summary.HeaderLine != 0};
}

}  // namespace

std::string Explanation::ProposedOptions() const {
    const TableFormat& format = Proposal->Format;
    std::string options = "--set AutoFormat=0 --set Separator=" + std::to_string(format.Separator);
    if (format.Merges() || Format.MergeSeparators)
        options += std::string(" --set MergeSeparators=") + (format.Merges() ? "1" : "0");
    return options + " --set FirstLine=" + std::to_string(format.FirstLine) +
           " --set ImportHeader=" + (format.Header ? "1" : "0");
}

Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record) {
    Explanation explanation{record, ReadingOf(filter), false, false, SummarizeColumns(filter), {}, {}, {}};
    const TableFormat taken = FormatOf(explanation.Format);
    const TableFormat detected{record.Separator, record.DetectedFirstLine, record.DetectedHeader};
    explanation.FollowsDetection = taken == detected;
    explanation.ReadsTimes =
        explanation.Format.TimeSetting == 0 && explanation.Format.TimestampFormat.empty();
    explanation.Proposal = ProposeTable(module, path);
    if (explanation.Proposal && explanation.Proposal->Format != taken)
        explanation.ProposalGives = TryProposal(module, path, explanation.Proposal->Format, record);
    explanation.Surprises = FindSurprises(explanation);
    return explanation;
}

}  // namespace kelvarin::explain
