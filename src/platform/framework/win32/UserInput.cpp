// Drives the real controls by the messages that a user's keys and mouse bring them.
#include "platform/framework/UserInput.h"

#include <algorithm>
#include <cstdlib>

#include "platform/framework/Controls.h"
#include "platform/framework/Locale.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

// The control that a user can reach, with the focus on it; null if there is none.
NativeWindow* Reach(CDialog& dialog, int id) {
    NativeWindow* const window = dialog.GetDlgItem(id).Handle;
    if (window == nullptr || !CWnd(window).IsWindowEnabled()) return nullptr;
    // A radio button that gets the focus otherwise than by the mouse, which it captures, checks itself.
    if (window->Kind == ControlKind::RadioButton) SetCapture(window->Window);
    CWnd(window).SetFocus();
    ReleaseCapture();
    // Leaving another control may have disabled this one.
    return CWnd(window).IsWindowEnabled() ? window : nullptr;
}

// The edit just left took the focus back, since its content was refused: what the user was about to do is
// lost, as the message box has it.
bool LostFocus(const NativeWindow* window) {
    return ControlOf(::GetFocus()) != window;
}

// The edit of a control: its own window, or the edit part of a combo.
HWND EditOf(const NativeWindow& window) {
    return window.Kind == ControlKind::ComboBox ? FindWindowExW(window.Window, nullptr, L"Edit", nullptr)
                                                : window.Window;
}

void TypeInto(HWND edit, const std::u16string& text) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) SendMessageW(edit, WM_CLEAR, 0, 0);
    for (const char16_t c : text) SendMessageW(edit, WM_CHAR, c, 1);
}

// A picker tells nothing of a change by message, so the change by the user is told here.
bool ChangePicker(CDialog& dialog, int id, const LocalTime& part, bool isDate) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || !window->IsPicker()) return false;
    SYSTEMTIME time{};
    window->Send(DTM_GETSYSTEMTIME, 0, &time);
    if (isDate) {
        time.wYear = static_cast<WORD>(part.Year);
        time.wMonth = static_cast<WORD>(part.Month);
        time.wDay = static_cast<WORD>(part.Day);
    } else {
        time.wHour = static_cast<WORD>(part.Hour);
        time.wMinute = static_cast<WORD>(part.Minute);
        time.wSecond = static_cast<WORD>(part.Second);
    }
    FILETIME exists{};
    if (!SystemTimeToFileTime(&time, &exists)) return false;
    if (LostFocus(window)) return true;
    if (window->Send(DTM_SETSYSTEMTIME, GDT_VALID, &time) == 0) return false;
    NMDATETIMECHANGE change{};
    change.nmhdr = {window->Window, static_cast<UINT_PTR>(id), static_cast<UINT>(DateTimeChanged)};
    change.st = time;
    SendMessageW(::GetParent(window->Window), WM_NOTIFY, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(&change));
    return true;
}

ControlView ViewOf(const NativeWindow& control) {
    const CWnd window(const_cast<NativeWindow*>(&control));
    ControlView view{
        control.Id, control.Kind, window.IsWindowEnabled(), false, window.GetWindowText(), {}, -1, 0};
    if (control.IsButton()) view.Checked = control.Send(BM_GETCHECK) == BST_CHECKED;
    if (control.IsPicker()) {
        view.Seconds = CDateTimeCtrl(window.Handle).GetTime();
        view.Text.clear();
    }
    if (!control.IsCombo()) return view;
    const CComboBox combo(window.Handle);
    for (int i = 0; i < combo.GetCount(); ++i) view.Items.push_back(combo.GetLBText(i));
    view.Selected = combo.GetCurSel();
    return view;
}

}  // namespace

bool UserFocus(CDialog& dialog, int id) {
    const bool reached = Reach(dialog, id) != nullptr;
    RunPendingMessages();
    return reached;
}

bool UserClick(CDialog& dialog, int id) {
    NativeWindow* const window = dialog.GetDlgItem(id).Handle;
    if (id == IDCANCEL && window != nullptr) {
        SendMessageW(dialog.GetNative().Window, WM_COMMAND, IDCANCEL,
                     reinterpret_cast<LPARAM>(window->Window));
        return true;
    }
    if (Reach(dialog, id) == nullptr || !window->IsButton()) return false;
    if (LostFocus(window)) return true;
    window->Send(BM_CLICK);
    RunPendingMessages();
    return true;
}

bool UserType(CDialog& dialog, int id, const std::u16string& text) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || (window->Style & ControlReadOnly) != 0) return false;
    if (LostFocus(window)) return true;
    if (window->Kind != ControlKind::Edit && window->Kind != ControlKind::ComboBox) return false;
    TypeInto(EditOf(*window), text);
    RunPendingMessages();
    return true;
}

bool UserSelect(CDialog& dialog, int id, int index) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || !window->IsCombo()) return false;
    if (index < 0 || index >= CComboBox(window).GetCount()) return false;
    if (LostFocus(window)) return true;
    window->Send(CB_SETCURSEL, static_cast<WPARAM>(index));
    SendMessageW(::GetParent(window->Window), WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(window->Window));
    RunPendingMessages();
    return true;
}

bool UserSpin(CDialog& dialog, int id, int steps) {
    NativeWindow* const spin = dialog.GetDlgItem(id).Handle;
    if (spin == nullptr || !CWnd(spin).IsWindowEnabled()) return false;
    NativeWindow* const buddy = ControlOf(reinterpret_cast<HWND>(spin->Send(UDM_GETBUDDY)));
    if (buddy == nullptr || spin->Kind != ControlKind::Spin) return false;
    CWnd(buddy).SetFocus();
    for (int i = 0; i < std::abs(steps); ++i) {
        const WPARAM key = steps > 0 ? VK_UP : VK_DOWN;
        buddy->Send(WM_KEYDOWN, key, LPARAM{1});
        buddy->Send(WM_KEYUP, key, LPARAM{1});
    }
    RunPendingMessages();
    return true;
}

bool UserSetDate(CDialog& dialog, int id, int year, int month, int day) {
    return ChangePicker(dialog, id, {year, month, day, 0, 0, 0}, true);
}

bool UserSetTime(CDialog& dialog, int id, int hour, int minute, int second) {
    return ChangePicker(dialog, id, {0, 0, 0, hour, minute, second}, false);
}

bool UserShowPage(CDialog& dialog, int index) {
    const HWND tabs = dialog.GetNative().Tabs;
    if (dialog.Sheet == nullptr || index < 0 || index >= dialog.Sheet->GetPageCount()) return false;
    ::SetFocus(tabs);
    if (ControlOf(::GetFocus()) != nullptr) return false;
    TabCtrl_SetCurFocus(tabs, index);
    RunPendingMessages();
    return dialog.Sheet->GetActiveIndex() == index;
}

bool UserClickRow(CDialog& dialog, int id, int row, bool onCheckBox) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || window->Kind != ControlKind::ListView) return false;
    if (row < 0 || row >= CListCtrl(window).GetItemCount()) return false;
    if (LostFocus(window)) return true;
    window->Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), LPARAM{FALSE});
    RECT label{};
    label.left = LVIR_LABEL;
    window->Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), &label);
    constexpr int Inside = 8;  // pixels into the label, or back into the check box
    const LPARAM point =
        MAKELPARAM(label.left + (onCheckBox ? -Inside : Inside), (label.top + label.bottom) / 2);
    // The list waits in a loop of its own for the button to come up.
    PostMessageW(window->Window, WM_LBUTTONUP, 0, point);
    window->Send(WM_LBUTTONDOWN, MK_LBUTTON, point);
    RunPendingMessages();
    return true;
}

bool UserDragColumn(CDialog& dialog, int id, int column, int width) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || column < 0 || column >= CListCtrl(window).GetColumnCount()) return false;
    window->Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), LPARAM{std::max(width, 0)});
    RunPendingMessages();
    return true;
}

std::vector<ControlView> ViewControls(const CDialog& dialog) {
    std::vector<ControlView> views;
    for (const auto& control : dialog.GetNative().Controls) {
        if (control->Id > 0) views.push_back(ViewOf(*control));
    }
    return views;
}
