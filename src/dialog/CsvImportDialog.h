// The modal settings dialog of one file.
#pragma once

#include <string>

#include "contract/GuiDialog.h"
#include "dialog/DescriptionPage.h"
#include "dialog/OptionPage.h"
#include "dialog/SignalPage.h"

// A frame with OK and Cancel around a sheet of two pages, which edit the record directly. The caller keeps a
// copy to put back unless DoModal answers 1.
class COptionDlg : public CGuiFontDialog {
  public:
    COptionDlg(CCsvImportSettings* settings, const std::u16string& path);

    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

  private:
    CGuiFontPropertySheet PageSheet;
    COptionPage GeneralPage;
    CSignalPage SignalPage;
    CDescriptionPage DescriptionPage;
};
