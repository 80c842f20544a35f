#include "analysis/ColumnNames.h"

#include "platform/framework/FormatText.h"
#include "resources/AppString.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

std::u16string ColumnName(const CCsvImportSettings& settings, int column, const char16_t* cell) {
    const int number = column + 1;
    const bool isTime = settings.TimeSetting == TimeFromColumn && number == settings.TimeColumn;
    if (settings.DateSetting == DateFromColumn && number == settings.DateColumn) {
        return LoadAppString(isTime ? IdDateTimeColumnName : IdDateColumnName);
    }
    if (isTime) return LoadAppString(IdTimeColumnName);
    if (settings.ImportHeader != 0) return cell;
    return FormatText(LoadAppString(IdColumnName), number);
}
