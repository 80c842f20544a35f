// The first timestamp shown on the general page, and its two buttons.
#include "contract/DialogFunctions.h"
#include "contract/TimeStamp.h"
#include "dialog/OptionPage.h"
#include "platform/framework/Numbers.h"
#include "resources/AppString.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"
#include "settings/CsvInfoFile.h"
#include "timestamp/TimestampFormat.h"

namespace {

constexpr int SettingsFileCategory = 3;
constexpr std::size_t ExtensionLength = 5;  // ".info"

// The first timestamp as people read it, or that the format doesn't fit.
std::u16string TimestampText(const CCsvImportSettings& settings, std::int64_t parsed) {
    std::u16string mismatch = LoadAppString(IdFormatMismatch);
    if (parsed == NoTimestamp) return mismatch;
    const std::int64_t time = WrappingAdd(parsed, settings.GetTimeCorrection(parsed));
    if (settings.DateSetting == DateNone) return CTimeStampSpan(time).Format(LoadAppString(IdSpanView), true);
    if (time < 0) return mismatch;
    return CTimeStamp(time).Format(LoadAppString(IdTimestampView), 0, true, false);
}

}  // namespace

void COptionPage::UpdateTimestampPreview() {
    std::int64_t parsed = 0;
    if (FormatCombo.IsWindowEnabled()) {
        const int selected = FormatCombo.GetCurSel();
        Settings->TimestampFormat =
            selected >= 0 ? FormatCombo.GetLBText(selected) : FormatCombo.GetWindowText();
        const bool hasDate = Settings->DateSetting == DateFromColumn;
        parsed = ParseTimestamp(Settings->TimestampFormat.c_str(), FirstTimestampText.c_str(), hasDate);
    }
    FirstTimestampEdit.SetWindowText(TimestampText(*Settings, parsed));
}

void COptionPage::OnSetUnixStartDate() {
    UpdateData(true);
    Settings->StartDate = 0;
    UpdateData(false);
    UpdateTimestampPreview();
}

void COptionPage::OnDateTimeChange() {
    UpdateData(true);
    UpdateTimestampPreview();
}

void COptionPage::OnLoadSettings() {
    std::u16string path;
    if (!OpenFileDlg(SettingsFileCategory, LoadAppString(IdOpenTitle), LoadAppString(IdSidecarFilter), path))
        return;
    if (path.size() < ExtensionLength) return;
    CCsvInfoFile file(path.substr(0, path.size() - ExtensionLength));
    if (file.Read() != 0) return;
    file.ApplyToSettings(*Settings);
    UpdateData(false);
    UpdateControls();
}
