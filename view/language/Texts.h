// The texts of the windows in the user's language. They are in English where they are said.
#pragma once

#include <string_view>

#include "host/language/Phrase.h"

namespace kelvarin::view {
// A table per language.
std::span<const Translation> GermanViewTexts();

// Puts the language of all texts in force, here and in the library. A new language is one more line.
inline void UseTexts(std::string_view code) {
    SetPhraseLanguage(code);
    AddPhrases("de", GermanViewTexts());
}
}  // namespace kelvarin::view
