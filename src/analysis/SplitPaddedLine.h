// SplitLine for the lines of a run.
#pragma once

#include <cstddef>

#include "settings/CellList.h"

// So many zeros must follow the text's terminating zero, so that a step of 64 characters reads nothing that
// is not the line's. It gives ScanDecimal and its kin their room too.
constexpr std::size_t LinePadding = 64;

// Answers what SplitLine does, about four times as fast.
void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells);

// The same for a line in bytes. False, with nothing changed but `cells`, if a byte or the separator is beyond
// ASCII or the separator ends lines.
bool SplitPaddedBytes(char* text, char16_t separator, bool merge, ByteCellList& cells);
