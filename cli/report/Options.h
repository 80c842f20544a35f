// Settings and remedies as options to paste.
#pragma once

#include <string>

#include "host/Remedy.h"

namespace kelvarin::cli {
// A word for a POSIX shell, quoted unless it holds only letters, digits and marks that no shell reads. What
// MakeVisible changes is written as $'\033', which bash, zsh, ksh, mksh and busybox know; a shell without it,
// such as dash, then gets another word, but no command.
std::string ShellQuoted(const std::string& word);

// "--set KEY=VALUE ..."; empty without settings.
std::string OptionsText(const SettingList& settings);

// The text of a remedy, then a colon and the options that do it.
std::string RemedyText(const Remedy& remedy);
}  // namespace kelvarin::cli
