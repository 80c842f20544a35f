// Settings and remedies as options to paste.
#pragma once

#include <string>

#include "host/Remedy.h"

namespace kelvarin::cli {
// "--set KEY=VALUE ..."; empty without settings.
std::string OptionsText(const SettingList& settings);

// The text of a remedy, then a colon and the options that do it.
std::string RemedyText(const Remedy& remedy);
}  // namespace kelvarin::cli
