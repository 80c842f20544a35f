#include "platform/framework/Controls.h"

#include <algorithm>

#include "platform/framework/portable/DialogFront.h"
#include "platform/framework/portable/NativeWindow.h"

namespace {

constexpr int RowHeight = 18;  // pixels
constexpr int CheckBoxWidth = 20;
constexpr unsigned CheckBoxStyle = 4;

// There is no scheme without a display: the colours of a usual one.
std::uint32_t windowColor = 0x00FFFFFF;
std::uint32_t buttonFaceColor = 0x00F0F0F0;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

void SetSystemColors(std::uint32_t window, std::uint32_t buttonFace) {
    windowColor = window;
    buttonFaceColor = buttonFace;
}

std::uint32_t GetSystemColor(ESystemColor color) {
    return color == WindowColor ? windowColor : buttonFaceColor;
}

void CEdit::LimitText(int characters) {
    Handle->TextLimit = characters;
}

void CSpinButtonCtrl::SetRange(int lowest, int highest) {
    Handle->Lowest = lowest;
    Handle->Highest = highest;
}

void CComboBox::ResetContent() {
    Handle->Items.clear();
    Handle->Selected = -1;
    Handle->Text.clear();
}

void CComboBox::AddString(const std::u16string& text) {
    Handle->Items.push_back(text);
}

int CComboBox::GetCount() const {
    return static_cast<int>(Handle->Items.size());
}

int CComboBox::GetCurSel() const {
    return Handle->Selected;
}

void CComboBox::SetCurSel(int index) {
    const bool exists = index >= 0 && index < GetCount();
    Handle->Selected = exists ? index : -1;
    Handle->Text = exists ? Handle->Items[At(index)] : std::u16string();
}

std::u16string CComboBox::GetLBText(int index) const {
    return Handle->Items[At(index)];
}

int CComboBox::FindStringExact(const std::u16string& text) const {
    const auto found = std::find(Handle->Items.begin(), Handle->Items.end(), text);
    return found == Handle->Items.end() ? -1 : static_cast<int>(found - Handle->Items.begin());
}

std::int64_t CDateTimeCtrl::GetTime() const {
    return Handle->Seconds;
}

void CDateTimeCtrl::SetTime(std::int64_t seconds) {
    Handle->Seconds = seconds;
}

// Nothing is drawn here.
void CListCtrl::SetRedraw(bool) {}
void CListCtrl::Update(int) {}
void CListCtrl::RedrawAll() {}

void CListCtrl::SetExtendedStyle(unsigned style) {
    Handle->ExtendedStyle = style;
}

unsigned CListCtrl::GetExtendedStyle() const {
    return Handle->ExtendedStyle;
}

void CListCtrl::SetCallbackMask(unsigned mask) {
    Handle->CallbackMask = mask;
}

void CListCtrl::InsertColumn(int column, const std::u16string& heading, int width) {
    const int place = std::clamp(column, 0, GetColumnCount());
    Handle->Columns.insert(Handle->Columns.begin() + place, {heading, width});
}

bool CListCtrl::DeleteColumn(int column) {
    if (column < 0 || column >= GetColumnCount()) return false;
    Handle->Columns.erase(Handle->Columns.begin() + column);
    return true;
}

int CListCtrl::GetColumnCount() const {
    return static_cast<int>(Handle->Columns.size());
}

void CListCtrl::DeleteAllItems() {
    Handle->Rows.clear();
    Handle->ScrollPos = 0;
}

int CListCtrl::GetItemCount() const {
    return static_cast<int>(Handle->Rows.size());
}

void CListCtrl::InsertItem(int row, const std::u16string& text) {
    NativeListRow made;
    made.Cells.resize(std::max<std::size_t>(Handle->Columns.size(), 1), std::u16string());
    made.Cells[0] = text;
    Handle->Rows.insert(Handle->Rows.begin() + std::clamp(row, 0, GetItemCount()), std::move(made));
}

void CListCtrl::SetItemText(int row, int column, const std::u16string& text) {
    if (row < 0 || row >= GetItemCount()) return;
    auto& cells = Handle->Rows[At(row)].Cells;
    if (column >= 0 && At(column) < cells.size()) cells[At(column)] = text;
}

int CListCtrl::AppendCallbackItem(std::int64_t data) {
    NativeListRow made;
    made.Cells.resize(Handle->Columns.size());
    made.Data = data;
    Handle->Rows.push_back(std::move(made));
    return GetItemCount() - 1;
}

void CListCtrl::SetCallbackText(int row, int column) {
    Handle->Rows[At(row)].Cells[At(column)].reset();
}

std::int64_t CListCtrl::GetItemData(int row) const {
    return Handle->Rows[At(row)].Data;
}

std::u16string CListCtrl::GetItemText(int row, int column) const {
    const NativeListRow& item = Handle->Rows[At(row)];
    if (item.Cells[At(column)].has_value()) return *item.Cells[At(column)];
    ListDispInfo info;
    info.WantsText = true;
    info.ItemData = item.Data;
    info.Column = column;
    Handle->Tell(ListGetDispInfo, &info);
    return info.Text;
}

unsigned CListCtrl::GetItemState(int row, unsigned mask) const {
    const NativeListRow& item = Handle->Rows[At(row)];
    if ((mask & Handle->CallbackMask) == 0) return item.State & mask;
    ListDispInfo info;
    info.WantsState = true;
    info.ItemData = item.Data;
    Handle->Tell(ListGetDispInfo, &info);
    return ((item.State & ~Handle->CallbackMask) | (info.State & Handle->CallbackMask)) & mask;
}

void CListCtrl::SetItemState(int row, unsigned state, unsigned mask) {
    unsigned& current = Handle->Rows[At(row)].State;
    ListItemChange change{true, (current & ~mask) | (state & mask)};
    if (change.NewState != current && Handle->Tell(ListItemChanging, &change) == 0) current = change.NewState;
}

int CListCtrl::HitTest(CPoint point, unsigned* flags) const {
    const int row = point.Y < 0 ? -1 : point.Y / RowHeight;
    *flags = 0;
    if (row < 0 || row >= GetItemCount()) return -1;
    const bool onCheckBox = (Handle->ExtendedStyle & CheckBoxStyle) != 0 && point.X < CheckBoxWidth;
    *flags = onCheckBox ? HitOnCheckBox : HitOnLabel;
    return row;
}

bool CListCtrl::GetHeaderRect(int column, CRect* rectangle) const {
    if (column < 0 || column >= GetColumnCount()) return false;
    int left = 0;
    for (int i = 0; i < column; ++i) left += Handle->Columns[At(i)].Width;
    *rectangle = {left, 0, left + Handle->Columns[At(column)].Width, RowHeight};
    return true;
}

int CListCtrl::GetScrollPos() const {
    return Handle->ScrollPos;
}

void CListCtrl::Scroll(int pixels) {
    Handle->ScrollPos = std::max(0, Handle->ScrollPos + pixels);
}

int CListCtrl::GetClientWidth() const {
    return Handle->Place.Width();
}

std::uint32_t CListCtrl::GetColumnBackground(int column) const {
    constexpr unsigned SubItemPrePaint = 0x30001;
    constexpr std::uint32_t Default = 0xFF000000;
    ListCustomDraw draw{SubItemPrePaint, column, Default};
    Handle->Tell(CustomDraw, &draw);
    return draw.CellBackground;
}

std::u16string CListCtrl::GetColumnHeading(int column) const {
    return Handle->Columns[At(column)].Heading;
}
