// The page that lists the columns which can become signals.
#pragma once

#include "contract/ParamListCtrl.h"
#include "platform/framework/PropertySheet.h"
#include "settings/CsvColumnInfo.h"

class CCsvImportSettings;

// Whether a column is imported, its name and its type go straight into the record, which the page borrows. A
// row stores nothing but the column's index.
class CSignalPage : public CPropertyPage, public CParamListOwner {
  public:
    explicit CSignalPage(CCsvImportSettings* settings);

    // --- Page (SignalPage.cpp) ---
    void DoDataExchange(CDataExchange& exchange) override;
    bool OnInitDialog() override;
    bool OnKillActive() override;
    bool OnApply() override;

    // --- List (SignalList.cpp) ---

    // Makes a row for each column that doesn't feed the timestamp; nothing while there is no list yet.
    void RefreshSignalList();
    int GetEditorKind(int row, int column) override;
    void OnEditDone(int row, int column, std::u16string& text) override;
    void OnShowDropDown(int row, int column) override;
    void OnRestoreItemText(CParamListCtrl& list, int row, int column) override;

  protected:
    void OnNotification(const Notification& notification) override;

  private:
    CCsvColumnInfo& ColumnOfRow(int row);
    void OnSignalGetDispInfo(ListDispInfo& info);
    void OnSignalListClick(const ListClick& click);
    void OnResetSignals();
    void FillTypeList();
    void SelectRow(int row);
    bool Refuse(unsigned messageId);

    CCsvImportSettings* const Settings;
    CParamListCtrl SignalList;
    CParamDropDownList TypeList;
};
