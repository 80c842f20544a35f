// Whether the general page may be left, and what it stores at OK.
#include "dialog/OptionPage.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/FormatText.h"
#include "resources/AppString.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

bool COptionPage::OnKillActive() {
    IsBeingLeft = true;
    const bool isExchanged = UpdateData(true);
    IsBeingLeft = false;
    return isExchanged && CheckFields();
}

bool COptionPage::Refuse(const std::u16string& message, int id) {
    AfxMessageBox(message, MessageExclamation);
    GetDlgItem(id).SetFocus();
    return false;
}

bool COptionPage::CheckFields() {
    const CCsvImportSettings& s = *Settings;
    const int columns = s.GetColumnCount();
    if (s.AutoFormat == 0 && s.Separator == SeparatorOther && s.OtherSeparator.empty()) {
        return Refuse(LoadAppString(IdNoSeparator), CtrlOtherSeparator);
    }
    const auto isMissing = [columns](int column) { return columns > 0 && column > columns; };
    if (s.DateSetting == DateFromColumn && isMissing(s.DateColumn)) {
        return Refuse(FormatText(LoadAppString(IdWrongColumn), columns), CtrlDateColumn);
    }
    if (s.TimeSetting == TimeFromColumn && isMissing(s.TimeColumn)) {
        return Refuse(FormatText(LoadAppString(IdWrongColumn), columns), CtrlTimeColumn);
    }
    if (s.TimestampFormat.empty() && s.TimeSetting != TimeInterval)
        return Refuse(LoadAppString(IdNoFormat), CtrlFormat);
    return true;
}

bool COptionPage::OnApply() {
    Settings->SaveAtOk(IsDlgButtonChecked(CtrlUseAsDefault));
    return true;
}
