// What may stand behind the number of a cell.
#pragma once

#include <string>

// True if the text holds a digit, a comma or a point.
bool HasNumberCharacter(const char16_t* text);

// Judges the rest of a cell behind its number. Without a unit (null) the rest must be empty. A unit that is
// set must be the rest exactly; one that is empty takes the rest as the unit, unless that is empty or looks
// like part of a number.
bool AcceptSuffix(const char16_t* suffix, std::u16string* unit);
