#include "host/explain/Explanation.h"

#include <algorithm>
#include <bit>

#include "host/plan/PlanSettings.h"
#include "host/plan/Sureness.h"
#include "host/plan/TimeAdvice.h"
#include "host/sidecar/Sidecars.h"

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
Explanation Describe(const CImportFilter& filter, const AnalysisRecord& record) {
    Explanation explanation{record, ReadingOf(filter), false, SummarizeColumns(filter)};
    explanation.FollowsDetection =
        TakenTable(explanation.Format) ==
        TableFormat{record.Separator, record.DetectedFirstLine, record.DetectedHeader};
    return explanation;
}

// `taken` is the separator of the module, which is as good for rows of one cell.
TableProposal ProposalOf(const plan::ReadingPlan& plan, int taken) {
    TableProposal proposal;
    const auto* const fixed =
        std::find(std::begin(FixedSeparators), std::end(FixedSeparators), plan.How.Separator);
    const bool hasHeader = plan.NamesLine != 0 && plan.NamesLine + 1 == plan.FirstLine;
    proposal.Format = {plan.Width == 1 ? taken : static_cast<int>(fixed - std::begin(FixedSeparators)),
                       static_cast<int>(hasHeader ? plan.NamesLine : plan.FirstLine), hasHeader};
    proposal.Rows = plan.RowsLookedAt;
    proposal.Cells = plan.Width;
    proposal.NamesLine = static_cast<int>(plan.NamesLine);
    for (const plan::PlannedColumn& column : plan.Columns) {
        if (plan.NamesLine == 0 || proposal.Names.size() > AnalysisRecord::LongestText) break;
        proposal.Names += (&column == plan.Columns.data() ? u"" : u", ") + column.Name;
    }
    return proposal;
}

// What makes the module read the file by the plan.
void Advise(const ModuleLoader& module, const std::u16string& path, const plan::ReadingPlan& plan,
            Explanation& explanation) {
    for (Assumption& one : plan::Assumptions(plan)) {
        if (one.Kind == "table" || one.Kind == "times") explanation.Assumed.push_back(std::move(one));
    }
    const auto filter = module.MakeFilter(path);
    const bool readsTimes =
        explanation.Format.TimeSetting != TimeFromColumn || !explanation.Format.TimestampFormat.empty();
    std::optional<SettingList> table = plan::TableSettingsOf(*filter, plan);
    const auto times = readsTimes ? plan::TimeSettings() : plan::TimeSettingsOf(*filter, plan, path);
    if (table && times) {
        table->insert(table->end(), times->Settings.begin(), times->Settings.end());
        explanation.AdvisedLetters = times->Letters;
        explanation.Advised = *std::move(table);
    } else {
        explanation.NeedsCopy = true;
    }
}
}  // namespace

TableFormat TakenTable(const Reading& reading) {
    const bool hasHeader = reading.HeaderLine != 0;
    return {reading.Separator, hasHeader ? reading.HeaderLine : reading.FirstDataLine, hasHeader};
}

Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record) {
    Explanation explanation = Describe(filter, record);
    if (const auto plan = sidecar::HasSidecar(path) ? std::nullopt : plan::FindPlanIfReadable(path)) {
        explanation.Proposal = ProposalOf(*plan, explanation.Format.Separator);
        explanation.IsOtherTable = explanation.Proposal->Format != TakenTable(explanation.Format);
        const bool lacksTimes =
            explanation.Format.TimeSetting == TimeFromColumn && explanation.Format.TimestampFormat.empty();
        if (lacksTimes || explanation.IsOtherTable) Advise(module, path, *plan, explanation);
    }
    explanation.Warnings = FindWarnings(explanation);
    return explanation;
}

Explanation ExplainPlanned(const plan::ReadingPlan& plan, const CImportFilter& filter,
                           const AnalysisRecord& record) {
    Explanation explanation = Describe(filter, record);
    explanation.Proposal = ProposalOf(plan, explanation.Format.Separator);
    explanation.Warnings = FindDoubtfulValues(explanation);
    return explanation;
}
}  // namespace kelvarin::explain
