// The data types that a column can still have.
#pragma once

#include "settings/CsvColumnInfo.h"

// Narrows the candidates of a column by one cell: its DetectedType becomes the lowest type that has accepted
// every cell so far. May set the column's unit. A cell is judged by its first 511 units.
void NarrowTypes(CCsvColumnInfo& column, const char16_t* cell);
