#include "settings/CsvImportSettings.h"

namespace {

// True for an entry that an analysis of an untouched column would build again just so.
bool HoldsOnlyDefaults(const CCsvColumnInfo& column) {
    return column.UserName.empty() && column.UserType == CsvTypeUndefined && column.PreviewWidth == -1 &&
           column.ImportColumn == (column.DetectedType != CsvTypeUndefined);
}

// The cell of a 1-based column, or null if the row has none.
const char16_t* CellOf(const CellList& cells, int column) {
    if (column < 1 || static_cast<std::size_t>(column) > cells.size()) return nullptr;
    return cells[static_cast<std::size_t>(column) - 1];
}

}  // namespace

void CCsvImportSettings::ApplyAutoFormat() {
    if (AutoFormat == 0) return;
    Separator = DetectedSeparator;
    FirstLine = DetectedFirstLine;
    ImportHeader = DetectedHeader;
    MergeSeparators = DetectedSeparator == SeparatorSpace ? 1 : 0;
}

char16_t CCsvImportSettings::GetSeparatorChar() const {
    if (Separator == SeparatorOther) return OtherSeparator.empty() ? u'\0' : OtherSeparator[0];
    return SeparatorCharOf(static_cast<std::uint32_t>(Separator));
}

int CCsvImportSettings::GetPreviewWidth(int column, int fallback) {
    const int width = GetColumn(column).PreviewWidth;
    return width == -1 ? fallback : width;
}

void CCsvImportSettings::SetPreviewWidth(int column, int width) {
    GetColumn(column).PreviewWidth = width;
}

void CCsvImportSettings::RemoveDefaultColumns() {
    for (auto entry = ColumnMap.begin(); entry != ColumnMap.end();) {
        if (HoldsOnlyDefaults(entry->second)) {
            entry = ColumnMap.erase(entry);
        } else {
            entry->second.DetectedType = CsvTypeUndefined;
            ++entry;
        }
    }
}

const char16_t* CCsvImportSettings::GetTimestampText(const CellList& cells, std::u16string& joined) const {
    const TimestampColumns columns = GetTimestampColumns();
    return JoinTimestampText(columns, CellOf(cells, columns.First), CellOf(cells, columns.Second), joined);
}

CCsvImportSettings::TimestampColumns CCsvImportSettings::GetTimestampColumns() const {
    const bool hasTime = TimeSetting == TimeFromColumn;
    if (DateSetting != DateFromColumn) return {hasTime ? TimeColumn : 0, 0};
    if (!hasTime || DateColumn == TimeColumn) return {DateColumn, 0};
    return {std::min(DateColumn, TimeColumn), std::max(DateColumn, TimeColumn)};
}

const char16_t* CCsvImportSettings::JoinTimestampText(const TimestampColumns& columns, const char16_t* first,
                                                      const char16_t* second, std::u16string& joined) const {
    static constexpr char16_t NoText[1 + JoinedPadding] = {};
    if (first == nullptr) return NoText;
    if (columns.Second == 0) return first;
    if (second == nullptr) return NoText;
    joined = first;
    joined += GetSeparatorChar();
    joined += second;
    joined.append(JoinedPadding, u'\0');
    return joined.c_str();
}
