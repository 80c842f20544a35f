#include "host/explain/AnalysisRecord.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace kelvarin::explain {

const std::u16string& AnalysisRecord::TextOf(int line) const {
    static const std::u16string none;
    const auto found = std::lower_bound(Counted.begin(), Counted.end(), line,
                                        [](const SeenLine& seen, int number) { return seen.Line < number; });
    return found == Counted.end() || found->Line != line ? none : found->Text;
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

void AnalysisRecord::OnSeparatorChosen(int separator, int firstLine) {
    Separator = separator;
    RunStart = firstLine;
    Tested.clear();
}

void AnalysisRecord::OnFormatDetected(int firstLine, bool header) {
    DetectedFirstLine = firstLine;
    DetectedHeader = header;
}

void AnalysisRecord::OnTableBegun(int firstLine, bool header) {
    FirstLine = firstLine;
    Header = header;
    Rows.clear();
}

void AnalysisRecord::OnCell(const JudgedCell& cell) {
    if (static_cast<std::size_t>(cell.Column) >= MostColumns) return;
    Rows.back().Cells.push_back(
        {std::u16string(cell.Text.substr(0, LongestText)), cell.Fits, cell.Before, cell.After});
}

void AnalysisRecord::OnTableEnded(TableEnd why, int line) {
    End = why;
    EndLine = line;
}

}  // namespace kelvarin::explain
