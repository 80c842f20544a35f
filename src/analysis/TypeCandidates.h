// The data types that a column can still have.
#pragma once

#include "contract/DataTypeSet.h"
#include "settings/CsvColumnInfo.h"

// Narrows the candidates of a column by one cell: its DetectedType becomes the lowest type that has accepted
// every cell so far. May set the column's unit. A cell is judged by its first 511 units.
void NarrowTypes(CCsvColumnInfo& column, const char16_t* cell);

// The candidates of a column.
DataTypeSet SetOfTypes(const CCsvColumnInfo& column);

// What one cell would leave of all types in a column that has this unit, or none yet if it is empty.
DataTypeSet TypesFitting(const char16_t* cell, const std::u16string& unit);
