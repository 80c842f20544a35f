// What an analysis found, as short text.
#pragma once

#include <string>

#include "settings/CsvImportSettings.h"

// "Integer[ kg]": the label that tests use for a type, with the unit if there is one.
std::string DescribeType(ECsvDataType type, const std::u16string& unit);

// The columns as "name:Type[unit]" with blanks between them, "-" before one that isn't imported; behind " | "
// the entries beyond the table's columns.
std::string DescribeColumns(CCsvImportSettings& settings);
