#include <algorithm>

#include "platform/framework/Controls.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

WPARAM Index(int index) {
    return static_cast<WPARAM>(index);
}

HWND HeaderOf(const NativeWindow& list) {
    return reinterpret_cast<HWND>(list.Send(LVM_GETHEADER));
}

void SetText(const NativeWindow& list, int row, int column, wchar_t* text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    list.Send(LVM_SETITEMTEXTW, Index(row), &item);
}

wchar_t* Writable(const std::u16string& text) {
    return const_cast<wchar_t*>(W(text));
}

}  // namespace

void CListCtrl::SetRedraw(bool draw) {
    Handle->Send(WM_SETREDRAW, draw ? TRUE : FALSE);
    if (draw) RedrawAll();
}

void CListCtrl::Update(int row) {
    Handle->Send(LVM_UPDATE, Index(row));
}

void CListCtrl::RedrawAll() {
    InvalidateRect(Handle->Window, nullptr, TRUE);
}

void CListCtrl::SetExtendedStyle(unsigned style) {
    Handle->Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LPARAM{style});
}

unsigned CListCtrl::GetExtendedStyle() const {
    return static_cast<unsigned>(Handle->Send(LVM_GETEXTENDEDLISTVIEWSTYLE));
}

void CListCtrl::SetCallbackMask(unsigned mask) {
    Handle->Send(LVM_SETCALLBACKMASK, mask);
}

void CListCtrl::InsertColumn(int column, const std::u16string& heading, int width) {
    LVCOLUMNW made{};
    made.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    made.pszText = Writable(heading);
    made.cx = width;
    made.iSubItem = column;
    Handle->Send(LVM_INSERTCOLUMNW, Index(column), &made);
}

bool CListCtrl::DeleteColumn(int column) {
    return Handle->Send(LVM_DELETECOLUMN, Index(column)) != FALSE;
}

int CListCtrl::GetColumnCount() const {
    return static_cast<int>(SendMessageW(HeaderOf(*Handle), HDM_GETITEMCOUNT, 0, 0));
}

void CListCtrl::DeleteAllItems() {
    Handle->Send(LVM_DELETEALLITEMS);
}

int CListCtrl::GetItemCount() const {
    return static_cast<int>(Handle->Send(LVM_GETITEMCOUNT));
}

void CListCtrl::InsertItem(int row, const std::u16string& text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = Writable(text);
    Handle->Send(LVM_INSERTITEMW, 0, &item);
}

void CListCtrl::SetItemText(int row, int column, const std::u16string& text) {
    SetText(*Handle, row, column, Writable(text));
}

int CListCtrl::AppendCallbackItem(std::int64_t data) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = GetItemCount();
    item.pszText = LPSTR_TEXTCALLBACKW;
    item.lParam = data;
    const int row = static_cast<int>(Handle->Send(LVM_INSERTITEMW, 0, &item));
    for (int column = 1; column < GetColumnCount(); ++column) SetCallbackText(row, column);
    return row;
}

void CListCtrl::SetCallbackText(int row, int column) {
    SetText(*Handle, row, column, LPSTR_TEXTCALLBACKW);
}

std::int64_t CListCtrl::GetItemData(int row) const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    Handle->Send(LVM_GETITEMW, 0, &item);
    return item.lParam;
}

std::u16string CListCtrl::GetItemText(int row, int column) const {
    LVITEMW item{};
    item.iSubItem = column;
    std::u16string text(256, u'\0');
    for (;;) {
        item.pszText = W(text.data());
        item.cchTextMax = static_cast<int>(text.size());
        const auto length = static_cast<std::size_t>(Handle->Send(LVM_GETITEMTEXTW, Index(row), &item));
        if (length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

unsigned CListCtrl::GetItemState(int row, unsigned mask) const {
    return static_cast<unsigned>(Handle->Send(LVM_GETITEMSTATE, Index(row), LPARAM{mask}));
}

void CListCtrl::SetItemState(int row, unsigned state, unsigned mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    Handle->Send(LVM_SETITEMSTATE, Index(row), &item);
}

int CListCtrl::HitTest(CPoint point, unsigned* flags) const {
    LVHITTESTINFO test{};
    test.pt = {point.X, point.Y};
    const auto row = static_cast<int>(Handle->Send(LVM_HITTEST, 0, &test));
    *flags = row < 0 ? 0 : test.flags;
    return row;
}

bool CListCtrl::GetHeaderRect(int column, CRect* rectangle) const {
    RECT place{};
    if (column < 0 || column >= GetColumnCount()) return false;
    if (SendMessageW(HeaderOf(*Handle), HDM_GETITEMRECT, Index(column), reinterpret_cast<LPARAM>(&place)) ==
        0)
        return false;
    *rectangle = {place.left, place.top, place.right, place.bottom};
    return true;
}

int CListCtrl::GetScrollPos() const {
    return ::GetScrollPos(Handle->Window, SB_HORZ);
}

void CListCtrl::Scroll(int pixels) {
    Handle->Send(LVM_SCROLL, Index(pixels), LPARAM{0});
}

int CListCtrl::GetClientWidth() const {
    RECT client{};
    ::GetClientRect(Handle->Window, &client);
    return client.right;
}

std::uint32_t CListCtrl::GetColumnBackground(int column) const {
    ListCustomDraw draw{CDDS_ITEMPREPAINT | CDDS_SUBITEM, column, CLR_DEFAULT};
    Handle->Tell(CustomDraw, &draw);
    return draw.CellBackground;
}

std::u16string CListCtrl::GetColumnHeading(int column) const {
    constexpr int Capacity = 512;
    std::u16string text(Capacity, u'\0');
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = W(text.data());
    asked.cchTextMax = Capacity;
    Handle->Send(LVM_GETCOLUMNW, Index(column), &asked);
    return text.c_str();
}
