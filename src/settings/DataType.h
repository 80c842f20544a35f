// The data types of a column.
#pragma once

#include <cstdint>

// In order of preference: of the types that fit all cells of a column the lowest is its type.
enum ECsvDataType : std::uint8_t {
    CsvTypeUndefined = 0,
    CsvTypeBoolean = 1,
    CsvTypeInteger = 2,
    CsvTypeIntegerUnit = 3,
    CsvTypeHex = 4,
    CsvTypeFloat = 5,
    CsvTypeFloatUnit = 6,
    CsvTypeChar = 7,
    CsvTypeString = 8
};

// Number of the types 1 to 8.
constexpr int CsvTypeCount = 8;
