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
    const char16_t* const time = TimeSetting == TimeFromColumn ? CellOf(cells, TimeColumn) : nullptr;
    static constexpr char16_t NoText[1 + JoinedPadding] = {};
    if (DateSetting != DateFromColumn) return time != nullptr ? time : NoText;
    const char16_t* const date = CellOf(cells, DateColumn);
    if (date == nullptr) return NoText;
    if (TimeSetting != TimeFromColumn || DateColumn == TimeColumn) return date;
    if (time == nullptr) return NoText;
    const bool dateFirst = DateColumn < TimeColumn;
    joined = dateFirst ? date : time;
    joined += GetSeparatorChar();
    joined += dateFirst ? time : date;
    joined.append(JoinedPadding, u'\0');
    return joined.c_str();
}
