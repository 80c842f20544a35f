// The texts of the commands and their reports in the user's language. They are in English where they are
// said.
#pragma once

#include "host/language/Phrase.h"

namespace kelvarin::cli {

// A table per language.
std::span<const Translation> GermanCommandTexts();

// Puts the language of all texts in force, here and in the library. A new language is one more line.
inline void UseTexts(std::string_view code) {
    SetPhraseLanguage(code);
    AddPhrases("de", GermanCommandTexts());
}

}  // namespace kelvarin::cli
