#include <algorithm>

#include "platform/framework/PropertySheet.h"
#include "platform/framework/win32/NativeWindow.h"
// Needs windows.h before it.
#include <uxtheme.h>

namespace {

constexpr ControlPlace Margins = {4, 4, 4, 6};  // dialog units around the tabs, and between the buttons

// The place of the page inside the tabs, in the frame's pixels.
RECT PageArea(HWND frame, HWND tabs) {
    RECT area{};
    ::GetWindowRect(tabs, &area);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&area), 2);
    TabCtrl_AdjustRect(tabs, FALSE, &area);
    return area;
}

// Puts the frame's buttons below the tabs, the last at the right, and makes the frame fit around all.
void ArrangeFrame(const CDialog::NativeDialog& native, const RECT& tabs, const RECT& margins) {
    int right = tabs.right;
    int bottom = tabs.bottom;
    for (auto button = native.Controls.rbegin(); button != native.Controls.rend(); ++button) {
        RECT place{};
        ::GetClientRect((*button)->Window, &place);
        bottom = std::max<int>(bottom, tabs.bottom + margins.bottom + place.bottom);
        SetWindowPos((*button)->Window, nullptr, right - place.right, tabs.bottom + margins.bottom, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER);
        right -= place.right + margins.right;
    }
    RECT outer{0, 0, tabs.right + margins.right, bottom + margins.bottom};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongW(native.Window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(native.Window, GWL_EXSTYLE)));
    const int width = outer.right - outer.left;
    const int height = outer.bottom - outer.top;
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(native.Window, nullptr, std::max<int>(work.left, (work.left + work.right - width) / 2),
                 std::max<int>(work.top, (work.top + work.bottom - height) / 2), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void CPropertySheet::CreateTabs() {
    CDialog::NativeDialog& native = Frame->GetNative();
    native.Tabs = CreateWindowExW(
        0, L"SysTabControl32", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS, 0, 0, 0, 0,
        native.Window, reinterpret_cast<HMENU>(INT_PTR{TabsId}), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(native.Tabs, WM_SETFONT, static_cast<WPARAM>(SendMessageW(native.Window, WM_GETFONT, 0, 0)),
                 0);
    RECT area{};
    for (int i = 0; i < GetPageCount(); ++i) {
        const DialogTemplate& page = GetPage(i).GetTemplate();
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(W(page.Title));
        SendMessageW(native.Tabs, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        area.right = std::max<LONG>(area.right, page.Width);
        area.bottom = std::max<LONG>(area.bottom, page.Height);
    }
    RECT margins{Margins.X, Margins.Y, Margins.Width, Margins.Height};
    MapDialogRect(native.Window, &area);
    MapDialogRect(native.Window, &margins);
    TabCtrl_AdjustRect(native.Tabs, TRUE, &area);
    OffsetRect(&area, margins.left - area.left, margins.top - area.top);
    // In front of the frame's buttons, so that the tab key comes to the page and the tabs first.
    SetWindowPos(native.Tabs, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 0);
    ArrangeFrame(native, area, margins);
}

void CPropertySheet::BringToFront(CPropertyPage& page) {
    const CDialog::NativeDialog& native = Frame->GetNative();
    const HWND window = page.GetNative().Window;
    const RECT area = PageArea(native.Window, native.Tabs);
    EnableThemeDialogTexture(window, ETDT_ENABLETAB);
    SetWindowPos(window, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_SHOWWINDOW | SWP_NOACTIVATE);
    for (CPropertyPage* const other : Pages) {
        if (other == &page || !other->IsCreated()) continue;
        const HWND hidden = other->GetNative().Window;
        // Keys must not reach a page that nobody sees.
        if (IsChild(hidden, ::GetFocus())) ::SetFocus(GetNextDlgTabItem(window, nullptr, FALSE));
        ShowWindow(hidden, SW_HIDE);
    }
    TabCtrl_SetCurSel(native.Tabs, Active);
}
