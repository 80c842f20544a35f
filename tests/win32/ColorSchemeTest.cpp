// The preview table under the user's colour scheme, as it is painted.
#include <gtest/gtest.h>

#include <functional>

#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/win32/NativeWindow.h"
#include "plugin/CsvImportFilter.h"
#include "resources/ResourceIds.h"

namespace {

// The system's colours of windows and button faces; the ones from before are put back at the end.
class Scheme {
  public:
    Scheme() : Window(GetSysColor(COLOR_WINDOW)), Face(GetSysColor(COLOR_BTNFACE)) {}
    Scheme(const Scheme&) = delete;
    Scheme& operator=(const Scheme&) = delete;
    ~Scheme() { Choose(Window, Face); }
    void Choose(COLORREF window, COLORREF face) const {
        const int which[] = {COLOR_WINDOW, COLOR_BTNFACE};
        const COLORREF colors[] = {window, face};
        SetSysColors(2, which, colors);
    }

  private:
    const COLORREF Window, Face;
};

// Hands the general page to a function.
class PageDriver : public DialogDriver {
  public:
    explicit PageDriver(std::function<void(CDialog&)> visit) : Visit(std::move(visit)) {
        SetDialogDriver(this);
    }
    ~PageDriver() override { SetDialogDriver(nullptr); }
    void RunModal(CDialog& dialog) override { Visit(dialog.Sheet->GetPage(0)); }
    int ShowMessage(const std::u16string&, unsigned) override { return 1; }
    std::optional<std::u16string> ChooseFile(const FileQuestion&) override { return {}; }

  private:
    const std::function<void(CDialog&)> Visit;
};

// The background of a cell of the first row, from the list's own picture of itself.
COLORREF PaintedBackground(HWND list, int column) {
    RECT client{};
    GetClientRect(list, &client);
    const HDC screen = GetDC(nullptr);
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP picture = CreateCompatibleBitmap(screen, client.right, client.bottom);
    const HGDIOBJ before = SelectObject(context, picture);
    SendMessageW(list, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT | PRF_ERASEBKGND);
    RECT cell{};
    cell.left = LVIR_BOUNDS;
    cell.top = column;
    SendMessageW(list, LVM_GETSUBITEMRECT, 0, reinterpret_cast<LPARAM>(&cell));
    // The rectangle of the first column is that of the row. Two pixels above the cell's lower edge is no
    // text.
    const COLORREF color = GetPixel(context, cell.left + 2, cell.bottom - 2);
    SelectObject(context, before);
    DeleteObject(picture);
    DeleteDC(context);
    ReleaseDC(nullptr, screen);
    return color;
}

TEST(ColorScheme, TintsTheColumnsOfTheTimeBetweenWindowAndButtons) {
    const struct {
        const char* What;
        COLORREF Window, Face, Tint;
    } schemes[] = {{"light", RGB(255, 255, 255), RGB(240, 240, 220), RGB(247, 247, 237)},
                   {"dark", RGB(32, 32, 32), RGB(64, 96, 128), RGB(48, 64, 80)},
                   {"high contrast", RGB(0, 0, 0), RGB(0, 0, 64), RGB(0, 0, 32)}};
    const Workdir folder;
    const TestProfile profile;
    CCsvImportFilter filter(folder.Write("a.csv", "t;v\n10:00:00;1\n").c_str());
    const PageDriver driver([&](CDialog& page) {
        const HWND list = page.GetDlgItem(CtrlPreview).Handle->Window;
        const Scheme scheme;
        for (const auto& c : schemes) {
            SCOPED_TRACE(c.What);
            scheme.Choose(c.Window, c.Face);
            EXPECT_EQ(PaintedBackground(list, 0), c.Tint) << std::hex << "the column of the time";
            EXPECT_EQ(PaintedBackground(list, 1), c.Window) << std::hex << "another column";
        }
    });
    filter.ShowOptionDialog();
}

}  // namespace
