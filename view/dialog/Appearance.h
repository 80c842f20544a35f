// How dialogs look: their size and colours, from the application's font, style and palette.
#pragma once

#include "platform/framework/portable/DialogFront.h"

class ModuleState;

namespace kelvarin::view {

// The units in which every dialog of a module has room for its texts, in the application's font and style:
// those of the font, or larger ones where a control needs more.
DialogUnits MeasureDialogs(const ModuleState& module);

// Hands the palette's colours on to the dialogs, which mix their tints of them.
void UseColorsOfPalette();

}  // namespace kelvarin::view
