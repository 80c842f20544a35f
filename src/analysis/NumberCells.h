// Cells that are numbers. Each parser answers whether the text is one; only then is the value meaningful. A
// null text is refused.
#pragma once

#include <cstdint>
#include <string>

// Removes every occurrence of a character in place.
void RemoveChar(char16_t* text, char16_t character);

// A whole number in `radix`, saturating at 64 bits. With `removeSeparators` points and commas are removed
// from the text first. `unit` null: no suffix allowed; else by the unit rule.
bool ParseInteger(char16_t* text, std::int64_t& value, bool removeSeparators, int radix,
                  std::u16string* unit);

// A hexadecimal number, with or without one of the prefixes "$", "0x", "16#".
bool ParseHex(const char16_t* text, std::int64_t& value);

// A number with comma or point as decimal mark, whichever stands last being the mark if both occur. Rewrites
// the marks in the text. `unit` as in ParseInteger.
bool ParseFloat(char16_t* text, double& value, std::u16string* unit);
