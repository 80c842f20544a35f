#include "host/Reading.h"

#include "contract/ImportFilter.h"
#include "contract/SettingsView.h"

namespace kelvarin {
char16_t Reading::SeparatorSign() const {
    if (Separator == SeparatorOther) return OtherSeparator.empty() ? u'\0' : OtherSeparator.front();
    return SeparatorCharOf(static_cast<std::uint32_t>(Separator));
}

const CCsvImportSettings* SettingsOf(const CImportFilter& filter) {
    const ISettingsView* const view = filter.Find<ISettingsView>();
    return view == nullptr ? nullptr : &view->GetSettings();
}

Reading ReadingOf(const CImportFilter& filter) {
    const CCsvImportSettings* const settings = SettingsOf(filter);
    if (settings == nullptr) return {};
    const int firstLine = settings->GetFirstLine();
    return {settings->Separator,
            settings->OtherSeparator,
            settings->MergeSeparators != 0,
            settings->ImportHeader != 0 ? firstLine : 0,
            settings->GetFirstDataLine(),
            settings->DateSetting,
            settings->DateColumn,
            settings->TimeSetting,
            settings->TimeColumn,
            settings->TimestampFormat,
            settings->Adjust != 0,
            settings->IntervalValue,
            settings->IntervalUnit};
}

std::vector<ColumnSummary> SummarizeColumns(const CImportFilter& filter, std::size_t most) {
    std::vector<ColumnSummary> columns;
    const CCsvImportSettings* const settings = SettingsOf(filter);
    if (settings == nullptr) return columns;
    for (const auto& [index, column] : settings->ColumnMap) {
        if (index < 0 || index >= settings->ColumnCount) continue;
        if (columns.size() == most) break;
        const bool isTimestamp = settings->IsTimestampColumn(index);
        columns.push_back({column.GetDisplayName(), column.GetEffectiveType(), column.Unit, isTimestamp,
                           index, column.ImportColumn && !isTimestamp});
    }
    return columns;
}

std::vector<int> SignalColumns(const CImportFilter& filter) {
    std::vector<int> columns;
    const CCsvImportSettings* const settings = SettingsOf(filter);
    if (settings == nullptr) return columns;
    for (const auto& [index, column] : settings->ColumnMap) {
        const bool isThere = index >= 0 && index < settings->ColumnCount;
        if (isThere && column.ImportColumn && !settings->IsTimestampColumn(index)) columns.push_back(index);
    }
    return columns;
}
}  // namespace kelvarin
