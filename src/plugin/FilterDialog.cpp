// The settings dialog of the filter: analysis, dialog and sidecar come together here.
#include "dialog/CsvImportDialog.h"
#include "platform/framework/DialogDriver.h"
#include "plugin/CsvImportFilter.h"
#include "resources/AppString.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

std::int64_t CCsvImportFilter::ShowOptionDialog() {
    constexpr std::int64_t Ok = 1;
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    if (!RunAnalysis(false, false)) {
        AfxMessageBox(LoadAppString(IdReadError), MessageExclamation);
        return 0;
    }
    const CCsvImportSettings before = Settings;
    COptionDlg dialog(&Settings, FilePath);
    const std::int64_t result = dialog.DoModal();
    SidecarFailure.clear();
    if (result == Ok && Settings.SaveSidecarFile != 0) {
        InfoFile.TakeFromSettings(Settings);
        InfoFile.Replace(SidecarFailure);
    }
    if (result != Ok) Settings = before;
    return result;
}
