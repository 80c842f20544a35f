// Reads the table under the live format and settles the name and type of each column.
#include <vector>

#include "analysis/ColumnNames.h"
#include "analysis/PreviewTableCallbacks.h"
#include "analysis/SplitLine.h"
#include "analysis/TypeCandidates.h"
#include "host/StdioFileEx.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr int RowsLookedAt = 500;

// The entries of the columns of row 0, so that a cell costs no search.
using ColumnList = std::vector<CCsvColumnInfo*>;

// Names the columns of row 0 and opens all types to them.
ColumnList StartColumns(CCsvImportSettings& settings, const CellList& cells,
                        IPreviewTableCallbacks* callbacks) {
    ColumnList columns;
    settings.ColumnCount = static_cast<int>(cells.size());
    for (int column = 0; column < settings.ColumnCount; ++column) {
        CCsvColumnInfo& info = settings.GetColumn(column);
        info.TypeCandidates.fill(true);
        info.DetectedName = ColumnName(settings, column, cells[static_cast<std::size_t>(column)]);
        if (callbacks != nullptr) callbacks->AddColumn(column, info.DetectedName.c_str());
        columns.push_back(&info);
    }
    return columns;
}

void AnalyzeRow(CCsvImportSettings& settings, const ColumnList& columns, int row, const CellList& cells,
                IPreviewTableCallbacks* callbacks) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int column = static_cast<int>(i);
        NarrowTypes(i < columns.size() ? *columns[i] : settings.GetColumn(column), cells[i]);
        if (callbacks != nullptr) callbacks->SetCell(row, column, cells[i]);
    }
}

// A column without any type can't become a signal. Fills the gaps of the map on the way, so that every index
// below its size has an entry.
void DropUntypedColumns(CCsvImportSettings& settings) {
    for (int column = 0; column < static_cast<int>(settings.ColumnMap.size()); ++column) {
        CCsvColumnInfo& info = settings.GetColumn(column);
        if (info.GetEffectiveType() == CsvTypeUndefined) info.ImportColumn = false;
    }
}

}  // namespace

bool CCsvImportSettings::AnalyzeColumns(CStdioFileEx& file, IPreviewTableCallbacks* callbacks,
                                        std::u16string* timestampText) {
    std::u16string line, joined;
    CellList cells;
    file.SeekToBegin(true);
    RemoveDefaultColumns();
    ColumnCount = 0;
    for (int skipped = 1; skipped < GetFirstLine(); ++skipped) {
        if (!file.ReadString(line)) return false;
    }
    ColumnList columns;
    const int firstDataRow = ImportHeader != 0 ? 1 : 0;
    for (int row = 0; row < RowsLookedAt && file.ReadString(line) && !line.empty(); ++row) {
        SplitLine(line.data(), GetSeparatorChar(), MergeSeparators != 0, cells);
        if (row == 0) columns = StartColumns(*this, cells, callbacks);
        if (row == firstDataRow && timestampText != nullptr) *timestampText = GetTimestampText(cells, joined);
        if (row >= firstDataRow) AnalyzeRow(*this, columns, row - firstDataRow, cells, callbacks);
    }
    DropUntypedColumns(*this);
    return !ColumnMap.empty();
}
