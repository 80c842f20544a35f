// What a user has chosen in the dialog of the import.
#pragma once

#include <vector>

#include "host/SettingText.h"

namespace kelvarin::view {
// Adds to the choices what differs between the settings that the dialog was opened with and those it was left
// with; an older choice of the same key goes. Of settings that mean something only together all are chosen
// as soon as one is: what the dialog has shown beside it was assumed, and would not be looked for any more.
void TakeChoices(std::vector<ParsedSetting>& chosen, const SettingList& before, const SettingList& after);
}  // namespace kelvarin::view
