#include "host/explain/Explanation.h"

#include <algorithm>
#include <bit>

#include "host/HostSession.h"
#include "host/language/Phrase.h"

namespace kelvarin::explain {
std::u16string AnalysisRecord::TextOf(int line) const {
    const auto found = std::find_if(Counted.begin(), Counted.end(),
                                    [line](const SeenLine& seen) { return seen.Line == line; });
    return found == Counted.end() ? std::u16string() : found->Text;
}

int AnalysisRecord::TypeOf(std::size_t column) const {
    for (auto row = Rows.rbegin(); row != Rows.rend(); ++row) {
        if (column >= row->Cells.size()) continue;
        const DataTypeSet left = row->Cells[column].After;
        return left == 0 ? CsvTypeUndefined : std::countr_zero(left) + 1;  // the lowest of them
    }
    return CsvTypeUndefined;
}

bool AnalysisRecord::ListenTo(CImportFilter& filter) {
    IObservedAnalysis* const analysis = filter.Find<IObservedAnalysis>();
    if (analysis != nullptr) analysis->ObserveAnalysis(this);
    return analysis != nullptr;
}

void AnalysisRecord::OnLineCounted(int line, std::u16string_view text, std::span<const SeparatorRun> runs) {
    if (line == 1 || (!Counted.empty() && Counted.back().Line >= line)) Counted.clear();
    SeenLine seen{line, std::u16string(text.substr(0, LongestLine)), {}};
    std::copy_n(runs.begin(), std::min(runs.size(), seen.Runs.size()), seen.Runs.begin());
    Counted.push_back(std::move(seen));
}

void AnalysisRecord::OnCell(const JudgedCell& cell) {
    if (static_cast<std::size_t>(cell.Column) >= MostColumns) return;
    Rows.back().Cells.push_back(
        {std::u16string(cell.Text.substr(0, LongestText)), cell.Fits, cell.Before, cell.After});
}

namespace {
std::size_t ColumnsKept(const AnalysisRecord& record) {
    return record.Rows.empty() ? 0 : std::min(record.Rows.front().CellCount, AnalysisRecord::MostColumns);
}

// Columns whose type is neither text nor unknown.
std::size_t TypedColumns(const AnalysisRecord& record) {
    std::size_t typed = 0;
    for (std::size_t column = 0; column < ColumnsKept(record); ++column) {
        const int type = record.TypeOf(column);
        typed += type != CsvTypeUndefined && type != CsvTypeString;
    }
    return typed;
}

// How the module reads the proposal; empty if it reads fewer values than from the table that it took, or if
// the proposal can't be had. A table taken that has at most half the rows is a scrap, a footer as a rule, and
// its values are not compared.
std::string TryProposal(const ModuleLoader& module, const std::u16string& path,
                        const Explanation& explanation) {
    const TableFormat& format = explanation.Proposal->Format;
    const AnalysisRecord& taken = explanation.Record;
    SettingsLayer layer;
    layer.Set(u"MergeSeparators", 0);
    for (const auto& [key, value] : explanation.ProposedSettings()) layer.Set(key, value);
    AnalysisRecord tried;
    HostSession session(module, path, RunOptions());
    if (!tried.ListenTo(session.Filter()) || !session.Filter().AnalyzeFile()) return {};
    // A sidecar takes precedence over the profile.
    const TableFormat read{ReadingOf(session.Filter()).Separator, tried.FirstLine, tried.Header};
    if (read != format || tried.DataRows() == 0) return {};
    const std::size_t typed = TypedColumns(tried);
    const bool readsFewer = typed * tried.Rows.size() < TypedColumns(taken) * taken.Rows.size();
    if (readsFewer && 2 * taken.Rows.size() > tried.Rows.size()) return {};
    return Phrase("columns: {}, of them text: {}", tried.Rows.front().CellCount, ColumnsKept(tried) - typed);
}
}  // namespace

SettingList Explanation::ProposedSettings() const {
    const TableFormat& format = Proposal->Format;
    SettingList settings = {{"AutoFormat", "0"}, {"Separator", std::to_string(format.Separator)}};
    if (format.Merges() || Format.MergeSeparators)
        settings.emplace_back("MergeSeparators", format.Merges() ? "1" : "0");
    settings.emplace_back("FirstLine", std::to_string(format.FirstLine));
    settings.emplace_back("ImportHeader", format.Header ? "1" : "0");
    return settings;
}

Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record) {
    Explanation explanation{record, ReadingOf(filter), false, false, SummarizeColumns(filter), {}, {}, {}};
    const Reading& reading = explanation.Format;
    const bool hasHeader = reading.HeaderLine != 0;
    const TableFormat taken{reading.Separator, hasHeader ? reading.HeaderLine : reading.FirstDataLine,
                            hasHeader};
    explanation.FollowsDetection =
        taken == TableFormat{record.Separator, record.DetectedFirstLine, record.DetectedHeader};
    explanation.ReadsTimes = reading.TimeSetting == TimeFromColumn && reading.TimestampFormat.empty();
    explanation.Proposal = ProposeTable(module, path);
    if (explanation.Proposal && explanation.Proposal->Format != taken)
        explanation.ProposalGives = TryProposal(module, path, explanation);
    explanation.Warnings = FindWarnings(explanation);
    return explanation;
}
}  // namespace kelvarin::explain
