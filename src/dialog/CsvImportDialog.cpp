#include "dialog/CsvImportDialog.h"

namespace {

constexpr int CancelButton = 2;

}  // namespace

COptionDlg::COptionDlg(CCsvImportSettings* settings, const std::u16string& path)
    : CGuiFontDialog(IdOptionDialog),
      GeneralPage(settings, &SignalPage, path),
      SignalPage(settings),
      DescriptionPage(settings) {}

bool COptionDlg::OnInitDialog() {
    CGuiFontDialog::OnInitDialog();
    PageSheet.AddPage(&GeneralPage);
    PageSheet.AddPage(&SignalPage);
    PageSheet.Create(*this);
    // A field that failed its check at once has the focus already.
    if (!CWnd::GetFocus().Exists()) GeneralPage.GetDlgItem(CtrlAutoFormat).SetFocus();
    return true;
}

void COptionDlg::OnOK() {
    // Every page is entered and left once, so that each checks itself, before any of them stores something.
    for (int page = 0; page < PageSheet.GetPageCount(); ++page) {
        if (!PageSheet.SetActivePage(page)) return;
    }
    if (!PageSheet.SetActivePage(0)) return;
    for (int page = 0; page < PageSheet.GetPageCount(); ++page) {
        if (!PageSheet.GetPage(page).OnApply()) return;
    }
    CGuiFontDialog::OnOK();
}

void COptionDlg::OnCancel() {
    // The closing still moves the focus about; what that tells the page must not be exchanged any more.
    GeneralPage.Cancelled = true;
    GetDlgItem(CancelButton).SetFocus();
    CGuiFontDialog::OnCancel();
}
