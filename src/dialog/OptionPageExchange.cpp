// Between the controls of the general page and the record, field by field in one order: a failed check ends
// the exchange there, with the fields before it stored and those behind it not looked at.
#include <algorithm>
#include <limits>

#include "dialog/OptionPage.h"
#include "platform/framework/DataExchange.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr double ShortestInterval = 0.001;
constexpr double LongestInterval = 1e6;

}  // namespace

void COptionPage::DoDataExchange(CDataExchange& exchange) {
    if (Cancelled) return;
    DDX_Control(exchange, CtrlFirstLineSpin, FirstLineSpin);
    DDX_Control(exchange, CtrlDateColumnSpin, DateColumnSpin);
    DDX_Control(exchange, CtrlTimeColumnSpin, TimeColumnSpin);
    DDX_Control(exchange, CtrlStartDate, StartDatePicker);
    DDX_Control(exchange, CtrlAdjustTime, AdjustTimePicker);
    DDX_Control(exchange, CtrlFormat, FormatCombo);
    DDX_Control(exchange, CtrlPreview, PreviewList);
    DDX_Control(exchange, CtrlFirstTimestamp, FirstTimestampEdit);

    CCsvImportSettings& s = *Settings;
    DDX_Check(exchange, CtrlAutoFormat, s.AutoFormat);
    DDX_Radio(exchange, CtrlSemicolon, s.Separator);
    DDV_MinMaxInt(exchange, CtrlSemicolon, s.Separator, SeparatorSemicolon, SeparatorOther);
    DDX_Text(exchange, CtrlOtherSeparator, s.OtherSeparator);
    DDV_MaxChars(exchange, CtrlOtherSeparator, s.OtherSeparator, 1);
    DDX_Check(exchange, CtrlMergeSeparators, s.MergeSeparators);
    ExchangeIntEdit(exchange, CtrlFirstLine, s.FirstLine, LowestNumber, HighestNumber);
    DDX_Check(exchange, CtrlImportHeader, s.ImportHeader);
    DDX_Radio(exchange, CtrlDateFromColumn, s.DateSetting);
    DDV_MinMaxInt(exchange, CtrlDateFromColumn, s.DateSetting, DateFromColumn, DateNone);
    ExchangeIntEdit(exchange, CtrlDateColumn, s.DateColumn, LowestNumber, HighestNumber);
    ExchangeStartDate(exchange);
    DDX_Radio(exchange, CtrlTimeFromColumn, s.TimeSetting);
    DDV_MinMaxInt(exchange, CtrlTimeFromColumn, s.TimeSetting, TimeFromColumn, TimeInterval);
    ExchangeIntEdit(exchange, CtrlTimeColumn, s.TimeColumn, LowestNumber, HighestNumber);
    DDX_TextInRange(exchange, CtrlIntervalValue, s.IntervalValue, ShortestInterval, LongestInterval);
    DDX_CBIndex(exchange, CtrlIntervalUnit, s.IntervalUnit);
    DDV_MinMaxInt(exchange, CtrlIntervalUnit, s.IntervalUnit, 0, 5);
    DDX_Check(exchange, CtrlAdjust, s.Adjust);
    DDX_DateTimeCtrl(exchange, CtrlAdjustTime, s.AdjustTime);
    DDX_CBIndex(exchange, CtrlAdjustMode, s.AdjustMode);
    DDV_MinMaxInt(exchange, CtrlAdjustMode, s.AdjustMode, AdjustStart, AdjustBack);
    DDX_CBStringExact(exchange, CtrlFormat, s.TimestampFormat);
    DDX_Check(exchange, CtrlSaveSidecar, s.SaveSidecarFile);
}

// A number is free while it is being typed, and held to its bounds once the focus is elsewhere or the page is
// being left: Enter leaves it with the focus still in the edit.
void COptionPage::ExchangeIntEdit(CDataExchange& exchange, int id, int& value, int lowest, int highest) {
    if (exchange.Failed) return;
    const CWnd edit = GetDlgItem(id);
    if (!edit.Exists()) {
        exchange.Failed = true;
        return;
    }
    const bool isTyped = !IsBeingLeft && CWnd::GetFocus() == edit && edit.GetClassName() == u"Edit";
    if (!isTyped) {
        DDX_TextInRange(exchange, id, value, lowest, highest);
    } else if (exchange.SaveAndValidate) {
        const std::u16string text = edit.GetWindowText();
        const char16_t* end = nullptr;
        const std::int64_t number = text.empty() ? -1 : ParseInt64(text.c_str(), &end, 10);
        value = static_cast<int>(std::clamp<std::int64_t>(number, -1, std::numeric_limits<int>::max()));
    } else if (value >= 0) {
        // An emptied edit stays empty while the user goes on typing.
        AfxSetWindowText(edit, FormatText(u"%i", value));
    }
}

// A date before 1970 snaps to the start of 1970 at once.
void COptionPage::ExchangeStartDate(CDataExchange& exchange) {
    if (exchange.Failed) return;
    if (exchange.SaveAndValidate) {
        LocalTime local{};
        const std::int64_t chosen = StartDatePicker.GetTime();
        Settings->StartDate = ToLocalTime(chosen, local) && local.Year >= 1970 ? chosen : 0;
    }
    StartDatePicker.SetTime(Settings->StartDate);
}
