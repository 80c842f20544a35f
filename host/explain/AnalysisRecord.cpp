#include "host/explain/AnalysisRecord.h"

#include <algorithm>
#include <bit>

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
}  // namespace kelvarin::explain
