// Reads the table under the live format and settles the name and type of each column.
#include <vector>

#include "analysis/ColumnNames.h"
#include "analysis/PreviewTableCallbacks.h"
#include "analysis/SplitPaddedLine.h"
#include "analysis/TypeCandidates.h"
#include "contract/AnalysisObserver.h"
#include "contract/StdioFileEx.h"
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

// As NarrowTypes, told to the observer. What the cell alone would leave is asked of a column of its own.
void NarrowObserved(CCsvColumnInfo& info, const char16_t* cell, JudgedCell judged,
                    IAnalysisObserver& observer) {
    judged.Text = cell;
    judged.Fits = TypesFitting(cell, info.Unit);
    judged.Before = SetOfTypes(info);
    NarrowTypes(info, cell);
    judged.After = SetOfTypes(info);
    observer.OnCell(judged);
}

// Who is told of the rows and cells; all of it may be null.
struct Listeners {
    IPreviewTableCallbacks* Preview;
    IAnalysisObserver* Observer;
};

// `row` counts the rows of data from 0, `line` the lines of the file from 1.
void AnalyzeRow(CCsvImportSettings& settings, const ColumnList& columns, int row, int line,
                const CellList& cells, const Listeners& listeners) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int column = static_cast<int>(i);
        CCsvColumnInfo& info = i < columns.size() ? *columns[i] : settings.GetColumn(column);
        if (listeners.Observer == nullptr) {
            NarrowTypes(info, cells[i]);
        } else {
            NarrowObserved(info, cells[i], {line, column, {}, 0, 0, 0}, *listeners.Observer);
        }
        if (listeners.Preview != nullptr) listeners.Preview->SetCell(row, column, cells[i]);
    }
}

// The next line of the table; false, with the reason, if the table ends before it.
bool ReadRow(CStdioFileEx& file, std::u16string& line, TableEnd& end) {
    const bool isRead = file.ReadString(line);
    if (isRead && !line.empty()) return true;
    end = isRead ? TableEnd::EmptyLine : TableEnd::EndOfFile;
    return false;
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
                                        std::u16string* timestampText, IAnalysisObserver* observer) {
    std::u16string line, joined;
    CellList cells;
    const Listeners listeners{callbacks, observer};
    file.SeekToBegin(true);
    RemoveDefaultColumns();
    ColumnCount = 0;
    if (observer != nullptr) observer->OnTableBegun(GetFirstLine(), ImportHeader != 0);
    for (int skipped = 1; skipped < GetFirstLine(); ++skipped) {
        if (file.ReadString(line)) continue;
        if (observer != nullptr) observer->OnTableEnded(TableEnd::EndOfFile, skipped);
        return false;
    }
    ColumnList columns;
    const int firstDataRow = ImportHeader != 0 ? 1 : 0;
    int row = 0;
    TableEnd end = TableEnd::EnoughRows;
    for (; row < RowsLookedAt && ReadRow(file, line, end); ++row) {
        line.append(LinePadding, u'\0');
        SplitPaddedLine(line.data(), GetSeparatorChar(), MergeSeparators != 0, cells);
        if (observer != nullptr) observer->OnRow(GetFirstLine() + row, cells.size());
        if (row == 0) columns = StartColumns(*this, cells, callbacks);
        if (row == firstDataRow && timestampText != nullptr) *timestampText = GetTimestampText(cells, joined);
        if (row >= firstDataRow) {
            AnalyzeRow(*this, columns, row - firstDataRow, GetFirstLine() + row, cells, listeners);
        }
    }
    if (observer != nullptr) observer->OnTableEnded(end, GetFirstLine() + row);
    DropUntypedColumns(*this);
    return !ColumnMap.empty();
}
