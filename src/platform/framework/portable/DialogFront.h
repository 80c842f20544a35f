// What a front needs that draws these controls on a display, beyond the steps of UserInput.h.
#pragma once

#include <cstdint>
#include <string>

#include "platform/framework/Dialog.h"
#include "platform/framework/DialogTemplate.h"

// A character of the dialogs' font in pixels: its mean width is 4 dialog units, its height 8.
struct DialogUnits {
    double Width = 6;
    double Height = 13;

    CRect ToPixels(const ControlPlace& place) const;
};

// The units of the controls made from now on. At first those of a usual font at 96 dpi.
void SetDialogUnits(DialogUnits units);
DialogUnits GetDialogUnits();

// Gives the controls of a dialog their places in the units in force, as after these have changed. The columns
// of a list keep their shares of its width.
void PlaceControls(CDialog& dialog);

// The colours of the user's scheme, 0x00BBGGRR.
void SetSystemColors(std::uint32_t window, std::uint32_t buttonFace);

// One change of the text of an edit or of a combo's edit part, such as a key makes it: the control takes the
// whole text and tells of it once. False if the control is absent, disabled or of another kind.
bool EnterText(CDialog& dialog, int id, const std::u16string& text);

// Moves the focus to a row of a list and selects it, as the arrow keys do.
bool EnterRow(CDialog& dialog, int id, int row);

// A key pressed in a list, by the system's number.
bool PressListKey(CDialog& dialog, int id, int key);

// Opens the editor of a cell as the user asks for it. False if there is no list or no such cell.
bool OpenCell(CDialog& dialog, int id, int row, int column);

// Closes the editor that is open over a cell and enters nothing.
void GiveUpCell(NativeWindow& list);
