// The records of all live filters of the process, so that one dialog can hand its choices to the others. Not
// guarded: the host makes and destroys filters and runs the dialog on one thread.
#pragma once

#include <vector>

class CCsvImportSettings;

// Enters a record made from the profile; in order of creation.
void EnterLiveSettings(CCsvImportSettings* record);

// Removes every entry of the record; nothing for a copy.
void LeaveLiveSettings(const CCsvImportSettings* record);

const std::vector<CCsvImportSettings*>& GetLiveSettings();
