// The name that the analysis gives a column.
#pragma once

#include <string>

class CCsvImportSettings;

// By the first rule that fits: the column is the date, the time or both; the header cell's text, also if
// empty; its number. `column` counts from 0, `cell` is the column's cell of the first line of interest.
std::u16string ColumnName(const CCsvImportSettings& settings, int column, const char16_t* cell);
