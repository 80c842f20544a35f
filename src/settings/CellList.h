// The cells of one line.
#pragma once

#include <vector>

// Zero-terminated texts inside the line's own buffer, never null. Valid until the next line is read into it;
// the list itself is kept from line to line.
using CellList = std::vector<char16_t*>;
