// SplitLine for the lines of a run.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "settings/CellList.h"

// So many zeros must follow the text's terminating zero, so that a step of 64 characters reads nothing that
// is not the line's. It gives ScanDecimal and its kin their room too.
constexpr std::size_t LinePadding = 64;

// Answers what SplitLine does, about four times as fast.
void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells);

// The same for the line at the start of `held`, bytes behind which LinePadding more are readable. What is cut
// is a copy of it with such zeros in `copy`, which grows as needed. Answers how many bytes the line takes
// with its end, a line feed with or without a carriage return before it. 0, with nothing said, if it doesn't
// end so in `held`, if a byte of it or the separator is beyond ASCII or if the separator ends lines.
std::size_t SplitHeldLine(std::string_view held, char16_t separator, bool merge, std::vector<char>& copy,
                          ByteCellList& cells);
