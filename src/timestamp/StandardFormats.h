// The ready-made timestamp formats that fit the sources chosen in the settings.
#pragma once

#include <string>
#include <vector>

class CCsvImportSettings;

// With the date from a column one format for each pair of a standard date and a standard time, in the order
// in which the cells are joined; with a time column alone the times of day, then the elapsed times; else
// none.
std::vector<std::u16string> GetStandardFormats(const CCsvImportSettings& settings);
