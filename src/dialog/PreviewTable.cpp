// The preview table: the file as the present settings cut it, filled by the analysis itself.
#include "contract/DialogFunctions.h"
#include "contract/StdioFileEx.h"
#include "dialog/OptionPage.h"
#include "dialog/SignalPage.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr std::int32_t RowsShown = 5;

}  // namespace

void COptionPage::UpdatePreviewTable() {
    CStdioFileEx file;
    CFileException error(false);
    file.SetEncoding(FileEncodingPreview);
    PreviewList.SetRedraw(false);
    PreviewList.DeleteAllItems();
    while (PreviewList.DeleteColumn(0)) {
    }
    try {
        constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
        if (!file.Open(FilePath.c_str(), Flags, &error)) throw &error;
        Settings->AnalyzeColumns(file, this, &FirstTimestampText);
        file.Close();
    } catch (CFileException* failure) {
        // The table stays as far as it has come; the user sees that much.
        failure->Delete();
        file.Abort();
    }
    PreviewList.SetRedraw(true);
    SignalPage->RefreshSignalList();
}

bool COptionPage::AddColumn(std::int32_t column, const char16_t* name) {
    const int fallback = PreviewList.GetWindowRect().Height();
    PreviewList.InsertColumn(column, name, Settings->GetPreviewWidth(column, fallback));
    return true;
}

bool COptionPage::SetCell(std::int32_t row, std::int32_t column, const char16_t* text) {
    if (row >= RowsShown) return false;
    if (column == 0) {
        PreviewList.InsertItem(row, text);
    } else {
        PreviewList.SetItemText(row, column, text);
    }
    return true;
}

void COptionPage::OnPreviewCustomDraw(ListCustomDraw& draw, std::intptr_t& result) {
    constexpr std::intptr_t NotifyNextLevel = 32;
    constexpr unsigned ItemOrPrePaint = 0x10001;
    constexpr std::uint32_t DefaultColor = 0xFF000000;
    result = NotifyNextLevel;
    if ((draw.Stage & ItemOrPrePaint) == 0) return;
    // The tint says that the column feeds the timestamp and so becomes no signal.
    const bool isTimestamp = Settings->IsTimestampColumn(draw.Column);
    draw.CellBackground = isTimestamp ? MixColors(WindowColor, ButtonFaceColor, 1) : DefaultColor;
}

void COptionPage::OnPreviewItemChanging(const ListItemChange& change, std::intptr_t& result) {
    result = change.IsState && (change.NewState & CListCtrl::Selected) != 0 ? 1 : 0;
}

void COptionPage::OnPreviewHeaderChanged(const HeaderChange& change, std::intptr_t& result) {
    Settings->SetPreviewWidth(change.Column, change.Width);
    result = 0;
}

void COptionPage::EnsureColumnVisible(int column) {
    CRect header;
    if (column < 0 || !PreviewList.GetHeaderRect(column, &header)) return;
    const int position = PreviewList.GetScrollPos();
    const int client = PreviewList.GetClientWidth();
    if (header.Width() > client || header.Left - position < 0) {
        PreviewList.Scroll(header.Left - position);
    } else if (header.Right - position > client) {
        PreviewList.Scroll(header.Right - client - position);
    }
}
