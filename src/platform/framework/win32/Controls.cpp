#include "platform/framework/Controls.h"

#include <cstring>

#include "platform/framework/Locale.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

WPARAM Index(int index) {
    return static_cast<WPARAM>(index);
}

SYSTEMTIME ToSystemTime(const LocalTime& local) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(local.Year);
    time.wMonth = static_cast<WORD>(local.Month);
    time.wDay = static_cast<WORD>(local.Day);
    time.wHour = static_cast<WORD>(local.Hour);
    time.wMinute = static_cast<WORD>(local.Minute);
    time.wSecond = static_cast<WORD>(local.Second);
    return time;
}

bool SameMoment(const SYSTEMTIME& a, const SYSTEMTIME& b) {
    return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay && a.wHour == b.wHour &&
           a.wMinute == b.wMinute && a.wSecond == b.wSecond;
}

}  // namespace

std::uint32_t GetSystemColor(ESystemColor color) {
    return GetSysColor(color);
}

void CEdit::LimitText(int characters) {
    Handle->Send(EM_LIMITTEXT, Index(characters));
}

void CSpinButtonCtrl::SetRange(int lowest, int highest) {
    Handle->Send(UDM_SETRANGE32, Index(lowest), LPARAM{highest});
}

void CComboBox::ResetContent() {
    Handle->Send(CB_RESETCONTENT);
}

void CComboBox::AddString(const std::u16string& text) {
    Handle->Send(CB_ADDSTRING, 0, W(text));
}

int CComboBox::GetCount() const {
    return static_cast<int>(Handle->Send(CB_GETCOUNT));
}

int CComboBox::GetCurSel() const {
    return static_cast<int>(Handle->Send(CB_GETCURSEL));
}

void CComboBox::SetCurSel(int index) {
    Handle->Send(CB_SETCURSEL, Index(index));
    if (index < 0 && Handle->Kind == ControlKind::ComboBox) SetWindowTextW(Handle->Window, L"");
}

std::u16string CComboBox::GetLBText(int index) const {
    const LRESULT length = Handle->Send(CB_GETLBTEXTLEN, Index(index));
    if (length < 0) return {};
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    Handle->Send(CB_GETLBTEXT, Index(index), text.data());
    text.pop_back();
    return text;
}

// The system's own search ignores case.
int CComboBox::FindStringExact(const std::u16string& text) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (GetLBText(i) == text) return i;
    }
    return -1;
}

std::int64_t CDateTimeCtrl::GetTime() const {
    SYSTEMTIME shown{};
    Handle->Send(DTM_GETSYSTEMTIME, 0, &shown);
    if (SameMoment(shown, Handle->GivenTime)) return Handle->GivenSeconds;
    return FromLocalTime({shown.wYear, shown.wMonth, shown.wDay, shown.wHour, shown.wMinute, shown.wSecond});
}

void CDateTimeCtrl::SetTime(std::int64_t seconds) {
    LocalTime local{};
    constexpr int FirstYear = 1601;
    constexpr int LastYear = 9999;
    if (!ToLocalTime(seconds, local) || local.Year < FirstYear || local.Year > LastYear) return;
    const SYSTEMTIME time = ToSystemTime(local);
    if (Handle->Send(DTM_SETSYSTEMTIME, GDT_VALID, &time) == 0) return;
    Handle->GivenSeconds = seconds;
    Handle->GivenTime = time;
}
