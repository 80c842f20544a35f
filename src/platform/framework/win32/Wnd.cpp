#include "platform/framework/Wnd.h"

#include "platform/framework/Controls.h"
#include "platform/framework/win32/NativeWindow.h"

int CWnd::GetDlgCtrlID() const {
    return Handle->Id;
}

void CWnd::EnableWindow(bool enable) {
    ::EnableWindow(Handle->Window, enable);
}

bool CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(Handle->Window) != FALSE;
}

void CWnd::SetFocus() {
    if (ControlOf(::GetFocus()) != Handle) ::SetFocus(Handle->Window);
}

std::u16string CWnd::GetWindowText() const {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(Handle->Window)) + 1, u'\0');
    const int length = GetWindowTextW(Handle->Window, W(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void CWnd::SetWindowText(const std::u16string& text) {
    // The selection would stand beside a text that it isn't.
    if (Handle->IsCombo() && CComboBox(Handle).FindStringExact(text) < 0)
        Handle->Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    SetWindowTextW(Handle->Window, W(text));
}

CRect CWnd::GetWindowRect() const {
    RECT place{};
    ::GetWindowRect(Handle->Window, &place);
    MapWindowPoints(nullptr, ::GetParent(Handle->Window), reinterpret_cast<POINT*>(&place), 2);
    return {place.left, place.top, place.right, place.bottom};
}

std::u16string CWnd::GetClassName() const {
    constexpr int Capacity = 64;
    wchar_t name[Capacity];
    GetClassNameW(Handle->Window, name, Capacity);
    return FromW(name);
}

void CWnd::SetUserData(void* data) {
    Handle->UserData = data;
}

void* CWnd::GetUserData() const {
    return Handle->UserData;
}

CWnd CWnd::GetFocus() {
    return CWnd(ControlOf(::GetFocus()));
}
