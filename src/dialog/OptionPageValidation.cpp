// Whether the general page may be left, and what it stores at OK.
#include "dialog/OptionPage.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/FormatText.h"
#include "resources/AppString.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

bool COptionPage::OnKillActive() {
    return UpdateData(true) && CheckNumbersOutOfFocus() && CheckFields();
}

bool COptionPage::Refuse(const std::u16string& message, int id) {
    AfxMessageBox(message, MessageExclamation);
    GetDlgItem(id).SetFocus();
    return false;
}

// Enter closes the dialog with the focus still in an edit, whose number the exchange then took unchecked.
bool COptionPage::CheckNumbersOutOfFocus() {
    struct Number {
        int Id, Value;
    };
    for (const Number number :
         {Number{CtrlFirstLine, Settings->FirstLine}, Number{CtrlDateColumn, Settings->DateColumn},
          Number{CtrlTimeColumn, Settings->TimeColumn}}) {
        if (number.Value >= LowestNumber && number.Value <= HighestNumber) continue;
        return Refuse(
            FormatText(u"Geben Sie eine ganze Zahl zwischen %i und %i ein.", LowestNumber, HighestNumber),
            number.Id);
    }
    return true;
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
    Settings->SaveSidecarOption();
    if (IsDlgButtonChecked(CtrlUseAsDefault)) {
        Settings->CopyToAllInstances();
        Settings->SaveToProfile();
    }
    return true;
}
