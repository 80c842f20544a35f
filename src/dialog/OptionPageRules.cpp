// Which control of the general page is enabled when.
#include <iterator>

#include "contract/DialogFunctions.h"
#include "dialog/OptionPage.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

void COptionPage::EnableControls() {
    constexpr int FormatIds[] = {
        CtrlSeparatorLabel,  CtrlSemicolon,      CtrlComma,     CtrlTab,           CtrlSpace,       CtrlOther,
        CtrlMergeSeparators, CtrlFirstLineLabel, CtrlFirstLine, CtrlFirstLineSpin, CtrlImportHeader};
    constexpr int TimeColumnIds[] = {CtrlTimeColumn, CtrlTimeColumnSpin};
    constexpr int IntervalIds[] = {CtrlIntervalValue, CtrlIntervalUnit};
    constexpr int AdjustIds[] = {CtrlAdjustTime, CtrlAdjustMode};
    constexpr int DateColumnIds[] = {CtrlDateColumn, CtrlDateColumnSpin};
    constexpr int TimestampFormatIds[] = {CtrlFormatLabel, CtrlFormat};
    const auto enable = [this](const auto& ids, bool isEnabled) {
        EnableDlgItems(*this, ids, std::size(ids), isEnabled);
    };

    const bool isManual = !IsDlgButtonChecked(CtrlAutoFormat);
    const CCsvImportSettings& s = *Settings;
    enable(FormatIds, isManual);
    EnableDlgItem(*this, CtrlOtherSeparator, isManual && IsDlgButtonChecked(CtrlOther));
    enable(TimeColumnIds, s.TimeSetting == TimeFromColumn);
    enable(IntervalIds, s.TimeSetting == TimeInterval);
    enable(AdjustIds, s.Adjust != 0);
    EnableDlgItem(*this, CtrlDateFromColumn, s.TimeSetting != TimeInterval);
    EnableDlgItem(*this, CtrlUnixStartDate, s.DateSetting == DateFixed);
    enable(DateColumnIds, s.DateSetting == DateFromColumn);
    EnableDlgItem(*this, CtrlStartDate, s.DateSetting == DateFixed);
    enable(TimestampFormatIds, s.DateSetting == DateFromColumn || s.TimeSetting == TimeFromColumn);
}
