// Tables of all kinds for tests, a file each.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/plan/AutomaticReading.h"

// A file and how it is read.
struct GeneratedTable {
    std::string Bytes;
    std::vector<std::string> Settings;              // "key=value"
    std::vector<kelvarin::plan::ColumnWish> Types;  // of the columns
    std::string About;                              // what is in it, for a message
};

// The table of a number; all numbers give tables that differ in encoding, line ends, times, types and in
// what is wrong with how many of the rows.
GeneratedTable MakeTable(std::uint32_t number);
