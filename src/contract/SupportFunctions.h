// Free functions of the host's support library.
#pragma once

#include <string>

// The profile name that a module shares with the host.
std::u16string GetCommonProfileName();

// The language that LoadLanguageDll looks for, as ISO 639 names it, such as "en"; empty: the user's own.
// Before the module is loaded.
void SetPreferredLanguage(const std::string& code);

// That language; the user's own unless another one was set.
std::string LanguageInForce();

// Loads the host's language resources for the current module. False if there are none for the language in
// force; the module's own resources then stay.
bool LoadLanguageDll();

// The item at place `index` (from 0) of the comma-separated string `id` of the current module, without blanks
// at its ends; empty if there is none.
std::u16string LoadSubString(unsigned id, unsigned index);

namespace PathUtil {

// The file-name part of a path.
std::u16string FindFileName(const std::u16string& path);

}  // namespace PathUtil
