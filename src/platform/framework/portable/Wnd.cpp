#include "platform/framework/Wnd.h"

#include <algorithm>

#include "platform/framework/portable/NativeWindow.h"

NativeWindow* focusedWindow = nullptr;

int CWnd::GetDlgCtrlID() const {
    return Handle->Id;
}

// A window that is disabled can't keep the focus.
void CWnd::EnableWindow(bool enable) {
    Handle->Enabled = enable;
    if (enable || focusedWindow != Handle) return;
    focusedWindow = nullptr;
    if (Handle->Kind == ControlKind::Edit) Handle->Tell(EditFocusLost);
}

bool CWnd::IsWindowEnabled() const {
    return Handle->Enabled;
}

void CWnd::SetFocus() {
    if (focusedWindow == Handle || !Handle->Enabled) return;
    NativeWindow* const left = focusedWindow;
    focusedWindow = Handle;
    if (left != nullptr && left->Kind == ControlKind::Edit) left->Tell(EditFocusLost);
}

std::u16string CWnd::GetWindowText() const {
    return Handle->Text;
}

void CWnd::SetWindowText(const std::u16string& text) {
    Handle->Text = text;
    if (Handle->IsCombo()) {
        const auto found = std::find(Handle->Items.begin(), Handle->Items.end(), text);
        if (found == Handle->Items.end()) Handle->Selected = -1;
    }
    if (Handle->Kind == ControlKind::Edit) Handle->Tell(EditChanged);
}

CRect CWnd::GetWindowRect() const {
    return Handle->Place;
}

std::u16string CWnd::GetClassName() const {
    switch (Handle->Kind) {
        case ControlKind::Edit:
            return u"Edit";
        case ControlKind::Label:
            return u"Static";
        case ControlKind::Spin:
            return u"msctls_updown32";
        case ControlKind::ComboBox:
        case ControlKind::DropDownList:
            return u"ComboBox";
        case ControlKind::DatePicker:
        case ControlKind::TimePicker:
            return u"SysDateTimePick32";
        case ControlKind::ListView:
            return u"SysListView32";
        default:
            return u"Button";
    }
}

void CWnd::SetUserData(void* data) {
    Handle->UserData = data;
}

void* CWnd::GetUserData() const {
    return Handle->UserData;
}

CWnd CWnd::GetFocus() {
    return CWnd(focusedWindow);
}
