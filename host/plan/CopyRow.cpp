#include "host/plan/CopyRow.h"

#include <algorithm>

namespace kelvarin::plan {
RowCopier::RowCopier(const ReadingPlan& plan, CopyLayout layout, const std::vector<ColumnType>& types)
    : Plan(plan), IsInPlace(layout == CopyLayout::InPlace) {
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        const PlannedColumn& column = plan.Columns[i];
        const CellCopier& copier = Columns.emplace_back(
            column, types[i], plan.Mark, i < plan.Elsewhere.size() ? &plan.Elsewhere[i] : nullptr);
        LeastKept.push_back(column.IsTime ? CellLook::Other : copier.LeastKept());
    }
    Looks.resize(plan.Columns.size());
}

std::string_view RowCopier::TextOf(const CopyLine& row) {
    Text.Clear();
    if (row.Quick == nullptr || !Plan.Missing.empty()) {
        AddCells(*row.Cells);
    } else if (!MayBeWhole || !AddWhole(*row.Quick)) {
        AddPieces(*row.Quick);
    }
    for (std::size_t i = Columns.size(); i < row.Cells->size(); ++i) ExtraCells += !(*row.Cells)[i].empty();
    return Text.Text();
}

void RowCopier::AddCells(const std::vector<std::u16string_view>& cells) {
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        const bool isTime = Plan.Columns[i].IsTime;
        if (isTime && !IsInPlace) continue;
        if (!IsInPlace) Text.Add('\t');
        if (!isTime && i < cells.size()) AddCell(i, cells[i]);
        if (IsInPlace) Text.Add('\t');
    }
}

void RowCopier::AddCell(std::size_t column, std::u16string_view cell) {
    const bool isMissing = Plan.IsDeclaredMissing(cell);
    DeclaredMissing += isMissing;
    Columns[column].Append(isMissing ? std::u16string_view() : cell, Text);
}

bool RowCopier::HasWrongTypes() {
    return std::any_of(Columns.begin(), Columns.end(), [](CellCopier& one) { return one.IsWrongType(); });
}

void RowCopier::Report(CopyResult& result) {
    result.Changes.ExtraCells += ExtraCells;
    result.Changes.Missing += DeclaredMissing;
    for (CellCopier& column : Columns) {
        result.Cells.push_back(column.Counts());
        result.Types.push_back(column.Type());
        result.Changes.Values += column.ChangedValues();
        result.Changes.Missing += column.ChangedMarkers();
    }
}
}  // namespace kelvarin::plan
