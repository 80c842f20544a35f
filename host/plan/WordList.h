// Words in lists that are one text each, with blanks between the words.
#pragma once

#include <string>
#include <string_view>

namespace kelvarin::plan {
// True for a letter of any script, a syllable or an ideograph, and for the sign of micro.
bool IsLetter(char16_t c);

// Lower case, for Latin, Greek and Cyrillic letters.
std::u16string Lowered(std::u16string_view word);

// True if the list holds the word, which must have the same case. No list holds the empty word.
bool IsListed(std::u16string_view list, std::u16string_view word);
}  // namespace kelvarin::plan
