// Why a column has its data type: the cells that ruled the other types out.
#pragma once

#include <array>
#include <string>

#include "host/explain/AnalysisRecord.h"

namespace kelvarin::explain {

// Some cells of a column.
struct CellGroup {
    std::size_t Count = 0;
    int FirstLine = 0;
    std::u16string FirstText;
};

struct ColumnReason {
    int Type = CsvTypeUndefined;  // that the analysis settled
    std::size_t Cells = 0;        // of the column
    CellGroup Empty;
    // Per type from boolean, at its number less one: the cell that ruled it out; none while it lasts.
    std::array<CellGroup, CsvTypeCount> Fell;
    int MostType = CsvTypeUndefined;  // of a text column: what most of its cells are, if that isn't text
    std::size_t Most = 0;             // cells of MostType
    CellGroup Others;                 // of a text column: neither empty nor of MostType
};

// `column` counts from 0.
ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column);

// One sentence without the type itself.
std::string ReasonInWords(const ColumnReason& reason);

// A text of a file in a sentence: quoted, on one line, of 40 characters at most.
std::string Quoted(const std::u16string& text);

// The cells of a column that pass a test of a SeenCell.
template <class Test>
CellGroup CellsWhere(const AnalysisRecord& record, std::size_t column, Test&& passes) {
    CellGroup group;
    for (const SeenRow& row : record.Rows) {
        if (column >= row.Cells.size() || !passes(row.Cells[column]) || group.Count++ != 0) continue;
        group.FirstLine = row.Line;
        group.FirstText = row.Cells[column].Text;
    }
    return group;
}

}  // namespace kelvarin::explain
