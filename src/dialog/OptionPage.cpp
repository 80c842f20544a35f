// The refresh of the general page: what runs when a control changes, step by step.
#include "dialog/OptionPage.h"

#include "platform/framework/Locale.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"
#include "timestamp/FormatLetters.h"

namespace {

bool IsOneOf(int id, std::initializer_list<int> ids) {
    for (const int each : ids) {
        if (each == id) return true;
    }
    return false;
}

// True for a notification that runs the refresh.
bool RunsUpdate(int id, int code) {
    switch (code) {
        case ButtonClicked:
            return IsOneOf(
                id, {CtrlAutoFormat, CtrlSemicolon, CtrlComma, CtrlTab, CtrlSpace, CtrlOther,
                     CtrlMergeSeparators, CtrlImportHeader, CtrlDateFromColumn, CtrlFixedDate, CtrlNoDate,
                     CtrlTimeFromColumn, CtrlFixedInterval, CtrlAdjust, CtrlSaveSidecar});
        case EditChanged:
            return IsOneOf(id, {CtrlOtherSeparator, CtrlFirstLine, CtrlDateColumn, CtrlTimeColumn});
        case EditFocusLost:
            return IsOneOf(id, {CtrlFirstLine, CtrlDateColumn, CtrlTimeColumn});
        case SpinMoved:
        case SpinReleased:
            return IsOneOf(id, {CtrlFirstLineSpin, CtrlDateColumnSpin, CtrlTimeColumnSpin});
        case ComboSelectionChanged:
            return id == CtrlAdjustMode;
        default:
            return false;
    }
}

// The local date of today, at this moment or at midnight.
std::int64_t Today(bool atMidnight) {
    const std::int64_t now = CurrentSeconds();
    LocalTime local{};
    if (!atMidnight || !ToLocalTime(now, local)) return now;
    return FromLocalTime({local.Year, local.Month, local.Day, 0, 0, 0});
}

}  // namespace

COptionPage::COptionPage(CCsvImportSettings* settings, CSignalPage* signalPage, const std::u16string& path)
    : CPropertyPage(IdOptionPage), Settings(settings), SignalPage(signalPage), FilePath(path) {
    LocalizeFormatLetters(Settings->TimestampFormat);
}

bool COptionPage::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    if (Settings->DateSetting != DateFixed) StartDatePicker.SetTime(Today(false));
    if (Settings->Adjust == 0) AdjustTimePicker.SetTime(Today(true));
    for (CSpinButtonCtrl* spin : {&FirstLineSpin, &DateColumnSpin, &TimeColumnSpin}) {
        spin->SetRange(LowestNumber, HighestNumber);
    }
    UpdateControls();
    return true;
}

void COptionPage::OnNotification(const Notification& n) {
    if (RunsUpdate(n.Id, n.Code)) return UpdateControls();
    switch (n.Code) {
        case ButtonClicked:
            if (n.Id == CtrlUnixStartDate) OnSetUnixStartDate();
            if (n.Id == CtrlLoadSettings) OnLoadSettings();
            break;
        case DateTimeChanged:
            OnDateTimeChange();
            break;
        case ComboEditChanged:
        case ComboSelectionChanged:
            if (n.Id == CtrlFormat) UpdateTimestampPreview();
            break;
        case EditFocusLost:
            if (n.Id == CtrlIntervalValue) UpdateData(true);
            break;
        case CustomDraw:
            OnPreviewCustomDraw(*static_cast<ListCustomDraw*>(n.Data), *n.Result);
            break;
        case ListItemChanging:
            OnPreviewItemChanging(*static_cast<ListItemChange*>(n.Data), *n.Result);
            break;
        case HeaderItemChanged:
            OnPreviewHeaderChanged(*static_cast<HeaderChange*>(n.Data), *n.Result);
            break;
        default:
            break;
    }
}

void COptionPage::UpdateControls() {
    // Controls tell of their changes while the page is still being made.
    if (!FormatCombo.Exists()) return;
    UpdateData(true);
    Settings->ApplyAutoFormat();
    // A fixed interval can't go with a date from a column.
    if (Settings->TimeSetting == TimeInterval && Settings->DateSetting == DateFromColumn) {
        Settings->DateSetting = DateFixed;
    }
    UpdateData(false);
    EnableControls();
    FillFormatCombo();
    UpdatePreviewTable();
    UpdateTimestampPreview();
    const CWnd focus = CWnd::GetFocus();
    if (focus == GetDlgItem(CtrlDateColumn)) {
        EnsureColumnVisible(Settings->DateColumn - 1);
    } else if (focus == GetDlgItem(CtrlTimeColumn)) {
        EnsureColumnVisible(Settings->TimeColumn - 1);
    }
}
