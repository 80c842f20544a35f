// What a user does to the controls of a dialog. Each operation puts the focus on the control, changes it and
// lets its notifications run; false if the control is absent, disabled or of another kind.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/framework/Dialog.h"
#include "platform/framework/DialogTemplate.h"

bool UserFocus(CDialog& dialog, int id);
bool UserClick(CDialog& dialog, int id);

// Replaces the text of an edit or of a combo's edit part; the focus stays there.
bool UserType(CDialog& dialog, int id, const std::u16string& text);
bool UserSelect(CDialog& dialog, int id, int index);

// Steps a spin by this much.
bool UserSpin(CDialog& dialog, int id, int steps);

// Sets the date, or the time of day, of a picker and keeps the rest.
bool UserSetDate(CDialog& dialog, int id, int year, int month, int day);
bool UserSetTime(CDialog& dialog, int id, int hour, int minute, int second);

// A click on the tab of a page: the focus goes to the tabs, then the sheet is asked. False if it stays where
// it is.
bool UserShowPage(CDialog& dialog, int index);

// A click on a row of a list: on its check box or on its text.
bool UserClickRow(CDialog& dialog, int id, int row, bool onCheckBox);
bool UserDragColumn(CDialog& dialog, int id, int column, int width);

// What a user sees of a control.
struct ControlView {
    int Id;
    ControlKind Kind;
    bool Enabled;
    bool Checked;
    std::u16string Text;
    std::vector<std::u16string> Items;
    int Selected;
    std::int64_t Seconds;  // of a picker, since 1970
};

// All controls with a number, in the order of tabbing.
std::vector<ControlView> ViewControls(const CDialog& dialog);
