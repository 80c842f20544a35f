// The signal page: its life and its two checks.
#include "dialog/SignalPage.h"

#include "contract/SupportFunctions.h"
#include "platform/framework/DataExchange.h"
#include "platform/framework/DialogDriver.h"
#include "resources/AppString.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

CSignalPage::CSignalPage(CCsvImportSettings* settings) : CPropertyPage(IdSignalPage), Settings(settings) {}

void CSignalPage::DoDataExchange(CDataExchange& exchange) {
    DDX_Control(exchange, CtrlSignalList, SignalList);
}

bool CSignalPage::OnInitDialog() {
    constexpr unsigned CheckBoxesAndFullRow = 0x24;
    constexpr double ColumnShare = 0.45;
    CPropertyPage::OnInitDialog();
    const int width = static_cast<int>(ColumnShare * SignalList.GetWindowRect().Width());
    for (int column = 0; column < 2; ++column) {
        SignalList.InsertColumn(column, LoadSubString(IdSignalHeadings, static_cast<unsigned>(column)),
                                width);
    }
    SignalList.SetExtendedStyle(SignalList.GetExtendedStyle() | CheckBoxesAndFullRow);
    SignalList.SetCallbackMask(CListCtrl::CheckBoxMask);
    SignalList.SetOwner(this);
    RefreshSignalList();
    return true;
}

void CSignalPage::OnNotification(const Notification& n) {
    if (n.Id == CtrlResetSignals && n.Code == ButtonClicked) OnResetSignals();
    if (n.Id != CtrlSignalList) return;
    if (n.Code == ListGetDispInfo) OnSignalGetDispInfo(*static_cast<ListDispInfo*>(n.Data));
    if (n.Code == ListClicked || n.Code == ListDoubleClicked)
        OnSignalListClick(*static_cast<ListClick*>(n.Data));
}

void CSignalPage::SelectRow(int row) {
    constexpr unsigned Marks = CListCtrl::Focused | CListCtrl::Selected;
    for (int i = 0; i < SignalList.GetItemCount(); ++i)
        SignalList.SetItemState(i, i == row ? Marks : 0, Marks);
}

bool CSignalPage::Refuse(unsigned messageId) {
    AfxMessageBox(LoadAppString(messageId), MessageExclamation);
    SignalList.SetFocus();
    return false;
}

bool CSignalPage::OnKillActive() {
    for (int row = 0; row < SignalList.GetItemCount(); ++row) {
        const CCsvColumnInfo& column = ColumnOfRow(row);
        if (!column.ImportColumn || column.GetEffectiveType() != CsvTypeUndefined) continue;
        SelectRow(row);
        return Refuse(IdNoDataType);
    }
    return CPropertyPage::OnKillActive();
}

bool CSignalPage::OnApply() {
    for (int row = 0; row < SignalList.GetItemCount(); ++row) {
        if (ColumnOfRow(row).ImportColumn) return CPropertyPage::OnApply();
    }
    SelectRow(-1);
    for (int page = 0; page < Parent->GetPageCount(); ++page) {
        if (&Parent->GetPage(page) == this) Parent->SetActivePage(page);
    }
    return Refuse(IdNoSignal);
}
