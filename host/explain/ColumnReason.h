// Why a column has its data type, told by the cells that took the others from it.
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

    void Add(int line, const std::u16string& text) {
        if (Count++ != 0) return;
        FirstLine = line;
        FirstText = text;
    }
};

struct ColumnReason {
    int Type = NoType;      // that the analysis settled
    std::size_t Cells = 0;  // of the column
    CellGroup Empty;
    std::array<CellGroup, DataTypes>
        Fell;               // per type from boolean: the cell that ended it; none while it lasts
    int MostType = NoType;  // of text: what most of its cells are; NoType if they are text
    std::size_t Most = 0;   // cells of MostType
    CellGroup Others;       // neither empty nor of MostType
};

// `column` counts from 0.
ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column);

// One sentence without the type itself.
std::string ReasonInWords(const ColumnReason& reason);

// A text of a file in a sentence: quoted, on one line, of 40 characters at most.
std::string Quoted(const std::u16string& text);

}  // namespace kelvarin::explain
