// The rows of the signal page and what the user does to their cells.
#include "contract/DialogFunctions.h"
#include "contract/SupportFunctions.h"
#include "dialog/SignalPage.h"
#include "platform/framework/Text.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr int NameColumn = 0;
constexpr unsigned CheckedImage = 0x2000;
constexpr unsigned UncheckedImage = 0x1000;

}  // namespace

void CSignalPage::RefreshSignalList() {
    if (!SignalList.Exists()) return;
    SignalList.DeleteAllItems();
    for (int column = 0; column < Settings->GetColumnCount(); ++column) {
        if (!Settings->IsTimestampColumn(column)) SignalList.AppendCallbackItem(column);
    }
}

CCsvColumnInfo& CSignalPage::ColumnOfRow(int row) {
    return Settings->GetColumn(static_cast<int>(SignalList.GetItemData(row)));
}

void CSignalPage::OnSignalGetDispInfo(ListDispInfo& info) {
    const CCsvColumnInfo& column = Settings->GetColumn(static_cast<int>(info.ItemData));
    if (info.WantsText) {
        const auto type = static_cast<unsigned>(column.GetEffectiveType());
        info.Text =
            info.Column == NameColumn ? column.GetDisplayName() : LoadSubString(IdDataTypeNames, type);
    }
    if (info.WantsState) {
        info.State &= ~static_cast<unsigned>(CListCtrl::CheckBoxMask);
        info.State |= column.ImportColumn ? CheckedImage : UncheckedImage;
    }
}

void CSignalPage::OnSignalListClick(const ListClick& click) {
    unsigned flags = 0;
    const int row = SignalList.HitTest(click.Point, &flags);
    if (row < 0 || flags != CListCtrl::HitOnCheckBox) return;
    CCsvColumnInfo& column = ColumnOfRow(row);
    column.ImportColumn = !column.ImportColumn;
    SignalList.Update(row);
}

// Entry number n is type n + 1: "not defined" is never offered.
void CSignalPage::FillTypeList() {
    TypeList.EarlyRemoveAll();
    const std::u16string names = CsvImportModule().LoadString(IdDataTypeNames);
    for (unsigned type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        TypeList.EarlyAddString(ExtractSubString(names, type, u',', true));
    }
}

int CSignalPage::GetEditorKind(int, int column) {
    return column == NameColumn ? EditorEditBox : EditorDropDownList;
}

void CSignalPage::OnShowDropDown(int row, int column) {
    FillTypeList();
    TypeList.CreateDropDownList(SignalList, row, column);
    TypeList.SetCurSel(ColumnOfRow(row).GetEffectiveType() - 1);
}

void CSignalPage::OnEditDone(int row, int column, std::u16string& text) {
    CCsvColumnInfo& info = ColumnOfRow(row);
    text = std::u16string(TrimWhiteSpace(text));
    if (column == NameColumn) {
        info.UserName = text;
        return;
    }
    FillTypeList();
    info.UserType = text.empty() ? CsvTypeUndefined
                                 : static_cast<ECsvDataType>(TypeList.EarlyFindClosestString(text) + 1);
}

void CSignalPage::OnRestoreItemText(CParamListCtrl& list, int row, int column) {
    list.SetCallbackText(row, column);
}

void CSignalPage::OnResetSignals() {
    for (int row = 0; row < SignalList.GetItemCount(); ++row) {
        CCsvColumnInfo& column = ColumnOfRow(row);
        column.UserType = CsvTypeUndefined;
        column.UserName.clear();
        column.ImportColumn = column.GetEffectiveType() != CsvTypeUndefined;
    }
    SignalList.RedrawAll();
}
