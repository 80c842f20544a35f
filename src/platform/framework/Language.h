// A module's texts in another language than its own. They come from a language module: a shared library whose
// one export hands over tables.
#pragma once

#include "platform/framework/Module.h"

// A text of a dialog template and what stands in its place.
struct DialogText {
    const char16_t* Own;
    const char16_t* Translated;
};

// The tables of one language; refers to static tables. What a table lacks stays in the module's own language.
struct LanguageResources {
    StringTable Strings;
    const DialogText* DialogTexts = nullptr;
    std::size_t DialogTextCount = 0;

    // The text for one of a template; `own` itself if the table lacks it.
    const char16_t* Translate(const char16_t* own) const;
};

// Name and type of a language module's export.
constexpr const char* LanguageEntryName = "GetKelvarinLanguageResources";
using LanguageEntry = const LanguageResources* (*)();

// Loads the language module that lies beside `module` and bears its name and the code of the language, such
// as csv-import-en, and lets the module use it. False, with the module's own language in force, if there is
// none. The language module stays loaded to the end of the process.
bool LoadLanguage(ModuleState& module, const std::string& code);

// The user's language as ISO 639 names it: from the environment's LC_ALL, LC_MESSAGES or LANG, else from the
// system; empty for none.
std::string UserLanguage();
