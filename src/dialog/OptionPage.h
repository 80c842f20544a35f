// The general page of the settings dialog.
#pragma once

#include <string>

#include "analysis/PreviewTableCallbacks.h"
#include "platform/framework/Controls.h"
#include "platform/framework/PropertySheet.h"
#include "settings/SettingsTable.h"

class CCsvImportSettings;
class CSignalPage;

// Edits a record in place and shows at once what it makes of the file. Every relevant change of a control
// runs UpdateControls, which analyses the file anew. Borrows the record and the signal page.
class COptionPage : public CPropertyPage, public IPreviewTableCallbacks {
  public:
    COptionPage(CCsvImportSettings* settings, CSignalPage* signalPage, const std::u16string& path);

    // Set when the user cancels: from then on nothing is exchanged any more.
    bool Cancelled = false;

    // --- Refresh (OptionPage.cpp) ---
    bool OnInitDialog() override;
    void UpdateControls();

    // --- Exchange (OptionPageExchange.cpp) ---
    void DoDataExchange(CDataExchange& exchange) override;

    // --- Leaving the page (OptionPageValidation.cpp) ---
    bool OnKillActive() override;
    bool OnApply() override;

    // --- Preview table (PreviewTable.cpp) ---
    bool AddColumn(std::int32_t column, const char16_t* name) override;
    bool SetCell(std::int32_t row, std::int32_t column, const char16_t* text) override;

  protected:
    void OnNotification(const Notification& notification) override;

  private:
    // Bounds of the first line and of the column numbers.
    static constexpr int LowestNumber = 1;

    // Rules of what is enabled when (OptionPageRules.cpp).
    void EnableControls();

    // Combo 1020 (FormatChoices.cpp).
    void FillFormatCombo();

    // Preview table (PreviewTable.cpp).
    void UpdatePreviewTable();
    void EnsureColumnVisible(int column);
    void OnPreviewCustomDraw(ListCustomDraw& draw, std::intptr_t& result);
    void OnPreviewItemChanging(const ListItemChange& change, std::intptr_t& result);
    void OnPreviewHeaderChanged(const HeaderChange& change, std::intptr_t& result);

    // Commands (OptionPageCommands.cpp).
    void UpdateTimestampPreview();
    void OnSetUnixStartDate();
    void OnLoadSettings();
    void OnDateTimeChange();

    void ExchangeIntEdit(CDataExchange& exchange, int id, int& value, int lowest, int highest);
    void ExchangeStartDate(CDataExchange& exchange);
    bool CheckFields();
    bool CheckNumbersOutOfFocus();
    bool Refuse(const std::u16string& message, int id);

    CCsvImportSettings* const Settings;
    CSignalPage* const SignalPage;
    const std::u16string FilePath;
    std::u16string FirstTimestampText;  // of the first data row of the last analysis that reached one
    CSpinButtonCtrl FirstLineSpin, DateColumnSpin, TimeColumnSpin;
    CDateTimeCtrl StartDatePicker, AdjustTimePicker;
    CComboBox FormatCombo;
    CListCtrl PreviewList;
    CEdit FirstTimestampEdit;
};
