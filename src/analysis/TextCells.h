// Cells that are truth values or single characters; the contract is that of NumberCells.
#pragma once

// "true" or "false" in any case, or a number that equals 1 or 0. May rewrite decimal marks in the text.
bool ParseBool(char16_t* text, bool& value);

// A text of one code unit, or a hexadecimal number from 0 to 0xFFFF.
bool ParseChar(const char16_t* text, char16_t& value);
