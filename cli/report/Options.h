// Settings and remedies as options to paste.
#pragma once

#include <string>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/Remedy.h"

namespace kelvarin::cli {
// "--set KEY=VALUE ..."; empty without settings. Then "--format-letters LETTERS" if there are any.
std::string OptionsText(const SettingList& settings, const std::u16string& letters = {});

// "--type 3=float --unit '3=bar' ..."; empty without columns.
std::string OptionsText(const std::vector<ColumnChoice>& columns);

// The text of a remedy, then a colon and the options that do it.
std::string RemedyText(const Remedy& remedy);
}  // namespace kelvarin::cli
