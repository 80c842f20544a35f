#include "platform/framework/UserInput.h"

#include <algorithm>
#include <cstdlib>

#include "platform/framework/Controls.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/Text.h"
#include "platform/framework/portable/DialogFront.h"
#include "platform/framework/portable/NativeWindow.h"

namespace {

constexpr int OkId = 1;
constexpr int CancelId = 2;

// The control that a user can reach, with the focus on it; null if there is none.
NativeWindow* Reach(CDialog& dialog, int id) {
    NativeWindow* const window = dialog.GetDlgItem(id).Handle;
    if (window == nullptr || !window->Enabled) return nullptr;
    CWnd(window).SetFocus();
    // Leaving another control may have disabled this one.
    return window->Enabled ? window : nullptr;
}

// The edit just left took the focus back, since its content was refused: what the user was about to do is
// lost, as the message box has it.
bool LostFocus(const NativeWindow* window) {
    return focusedWindow != window;
}

// Replaces the text key by key, as it is selected and typed over; the control tells of every key that it
// takes.
void TypeInto(NativeWindow& window, const std::u16string& text, int changed) {
    const std::size_t limit = window.TextLimit > 0 ? static_cast<std::size_t>(window.TextLimit) : text.size();
    std::u16string typed;
    const auto show = [&] {
        window.Text = typed;
        window.Selected = -1;
        window.Tell(changed);
    };
    if (text.empty() && !window.Text.empty()) show();
    for (const char16_t c : text) {
        if (typed.size() == limit || ((window.Style & ControlDigits) != 0 && !IsDigit(c))) continue;
        typed += c;
        show();
    }
}

// Radio buttons are cleared from the first of their group on.
void CheckRadioOf(CDialog& dialog, const NativeWindow& clicked) {
    int first = clicked.Id;
    for (const auto& control : dialog.GetNative().Controls) {
        if (control->Kind == ControlKind::RadioButton && (control->Style & ControlGroup) != 0)
            first = control->Id;
        if (control.get() == &clicked) break;
    }
    for (NativeWindow* radio : dialog.GetNative().Group(first)) radio->Checked = radio == &clicked;
}

// The list of a number if it has such a row, with the focus on it; else null.
NativeWindow* ReachRow(CDialog& dialog, int id, int row) {
    NativeWindow* const window = Reach(dialog, id);
    const bool hasRow = window != nullptr && window->Kind == ControlKind::ListView && row >= 0 &&
                        static_cast<std::size_t>(row) < window->Rows.size();
    return hasRow ? window : nullptr;
}

void MarkRow(CListCtrl list, int row) {
    constexpr unsigned Marks = CListCtrl::Focused | CListCtrl::Selected;
    for (int i = 0; i < list.GetItemCount(); ++i) list.SetItemState(i, i == row ? Marks : 0, Marks);
}

bool ChangePicker(CDialog& dialog, int id, const LocalTime& part, bool isDate) {
    NativeWindow* const window = Reach(dialog, id);
    LocalTime local{};
    if (window == nullptr || !window->IsPicker() || !ToLocalTime(window->Seconds, local)) return false;
    if (isDate) {
        local.Year = part.Year;
        local.Month = part.Month;
        local.Day = part.Day;
    } else {
        local.Hour = part.Hour;
        local.Minute = part.Minute;
        local.Second = part.Second;
    }
    // A picker shows no date and no time that doesn't exist.
    const std::int64_t seconds = FromLocalTime(local);
    LocalTime back{};
    if (!ToLocalTime(seconds, back) || back.Month != local.Month || back.Day != local.Day) return false;
    if (part.Hour < 0 || part.Hour > 23 || part.Minute < 0 || part.Minute > 59 || part.Second < 0 ||
        part.Second > 59) {
        return false;
    }
    if (LostFocus(window)) return true;
    window->Seconds = seconds;
    window->Tell(DateTimeChanged);
    return true;
}

}  // namespace

bool UserFocus(CDialog& dialog, int id) {
    return Reach(dialog, id) != nullptr;
}

bool UserClick(CDialog& dialog, int id) {
    if (id == CancelId && dialog.GetDlgItem(id).Exists()) {
        dialog.OnCancel();  // which itself says when the focus moves
        return true;
    }
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || !window->IsButton()) return false;
    if (LostFocus(window)) return true;
    if (window->Kind == ControlKind::CheckBox) window->Checked = !window->Checked;
    if (window->Kind == ControlKind::RadioButton) CheckRadioOf(dialog, *window);
    if (id == OkId) {
        dialog.OnOK();
    } else {
        window->Tell(ButtonClicked);
    }
    return true;
}

bool UserType(CDialog& dialog, int id, const std::u16string& text) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || (window->Style & ControlReadOnly) != 0) return false;
    if (LostFocus(window)) return true;
    if (window->Kind != ControlKind::Edit && window->Kind != ControlKind::ComboBox) return false;
    TypeInto(*window, text, window->Kind == ControlKind::Edit ? EditChanged : ComboEditChanged);
    return true;
}

bool UserSelect(CDialog& dialog, int id, int index) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || !window->IsCombo()) return false;
    if (index < 0 || static_cast<std::size_t>(index) >= window->Items.size()) return false;
    if (LostFocus(window)) return true;
    CComboBox(window).SetCurSel(index);
    window->Tell(ComboSelectionChanged);
    return true;
}

bool UserSpin(CDialog& dialog, int id, int steps) {
    NativeWindow* const spin = dialog.GetDlgItem(id).Handle;
    if (spin == nullptr || !spin->Enabled || spin->Buddy == nullptr) return false;
    CWnd(spin->Buddy).SetFocus();
    for (int i = 0; i < std::abs(steps); ++i) {
        // A text that is no number leaves the spin where it stood; at its bounds it tells nothing.
        const char16_t* end = nullptr;
        const std::int64_t typed = ParseInt64(spin->Buddy->Text.c_str(), &end, 10);
        if (end != spin->Buddy->Text.c_str()) spin->Position = typed;
        const std::int64_t stepped =
            std::clamp<std::int64_t>(spin->Position + (steps > 0 ? 1 : -1), spin->Lowest, spin->Highest);
        if (stepped == spin->Position) continue;
        spin->Position = stepped;
        spin->Buddy->Text = FormatText(u"%i", stepped);
        spin->Buddy->Tell(EditChanged);
    }
    return true;
}

bool UserSetDate(CDialog& dialog, int id, int year, int month, int day) {
    return ChangePicker(dialog, id, {year, month, day, 0, 0, 0}, true);
}

bool UserSetTime(CDialog& dialog, int id, int hour, int minute, int second) {
    return ChangePicker(dialog, id, {0, 0, 0, hour, minute, second}, false);
}

bool UserShowPage(CDialog& dialog, int index) {
    NativeWindow* const left = focusedWindow;
    focusedWindow = nullptr;
    if (left != nullptr && left->Kind == ControlKind::Edit) left->Tell(EditFocusLost);
    if (focusedWindow != nullptr || dialog.Sheet == nullptr) return false;
    // A click on the tab in front asks nothing.
    return index == dialog.Sheet->GetActiveIndex() || dialog.Sheet->SetActivePage(index);
}

bool UserClickRow(CDialog& dialog, int id, int row, bool onCheckBox) {
    NativeWindow* const window = ReachRow(dialog, id, row);
    if (window == nullptr) return false;
    ListClick click;
    unsigned flags = 0;
    // Down to the row, then right to the part of it, as the list itself sees them.
    CListCtrl list(window);
    while (list.HitTest(click.Point, &flags) != row) ++click.Point.Y;
    if (LostFocus(window)) return true;
    MarkRow(list, row);
    while (!onCheckBox && flags == CListCtrl::HitOnCheckBox) {
        ++click.Point.X;
        list.HitTest(click.Point, &flags);
    }
    window->Tell(ListClicked, &click);
    return true;
}

bool UserDragColumn(CDialog& dialog, int id, int column, int width) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || column < 0 || static_cast<std::size_t>(column) >= window->Columns.size())
        return false;
    window->Columns[static_cast<std::size_t>(column)].Width = std::max(width, 0);
    HeaderChange change{column, std::max(width, 0)};
    // The header is a window of its own, numbered 0.
    dialog.Notify(0, HeaderItemChanged, &change);
    return true;
}

bool EnterText(CDialog& dialog, int id, const std::u16string& text) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || (window->Style & ControlReadOnly) != 0) return false;
    if (window->Kind != ControlKind::Edit && window->Kind != ControlKind::ComboBox) return false;
    if (LostFocus(window) || window->Text == text) return true;
    window->Text = text;
    window->Selected = -1;
    window->Tell(window->Kind == ControlKind::Edit ? EditChanged : ComboEditChanged);
    return true;
}

bool EnterRow(CDialog& dialog, int id, int row) {
    NativeWindow* const window = ReachRow(dialog, id, row);
    if (window != nullptr && !LostFocus(window)) MarkRow(CListCtrl(window), row);
    return window != nullptr;
}

bool PressListKey(CDialog& dialog, int id, int key) {
    NativeWindow* const window = Reach(dialog, id);
    if (window == nullptr || window->Kind != ControlKind::ListView) return false;
    ListKey pressed{key};
    if (!LostFocus(window)) window->Tell(ListKeyPressed, &pressed);
    return true;
}

bool OpenCell(CDialog& dialog, int id, int row, int column) {
    NativeWindow* const window = ReachRow(dialog, id, row);
    if (window == nullptr || column < 0 || static_cast<std::size_t>(column) >= window->Columns.size())
        return false;
    if (!LostFocus(window) && window->OpenEditor) window->OpenEditor(row, column);
    return true;
}

void GiveUpCell(NativeWindow& list) {
    list.Editor.reset();
}

std::vector<ControlView> ViewControls(const CDialog& dialog) {
    std::vector<ControlView> views;
    for (const auto& control : dialog.GetNative().Controls) {
        if (control->Id <= 0) continue;
        views.push_back({control->Id, control->Kind, control->Enabled, control->Checked, control->Text,
                         control->Items, control->Selected, control->Seconds});
    }
    return views;
}
