// The plain numbers that almost all cells of a run are, read sixteen characters at a time. What isn't plain is left
// to ParseFloat and ParseInteger, which these answer for. Nothing here changes a cell; all of it reads up to
// LinePadding units behind its terminating zero.
#pragma once

#include <cstddef>
#include <cstdint>

// A decimal number at the start of `cell`: a sign or none and up to 15 characters, digits with one mark among
// them, comma or point, or none, then possibly an exponent. `*end` is set behind it and is not a mark or a digit.
// False says nothing about the cell.
bool ScanDecimal(const char16_t* cell, double& value, const char16_t** end);

// A whole number at the start of `cell`: a sign or none and up to 15 digits. The rest is as for ScanDecimal.
bool ScanInteger(const char16_t* cell, std::int64_t& value, const char16_t** end);

// The units before the cell's terminating zero.
std::size_t ScanLength(const char16_t* cell);
