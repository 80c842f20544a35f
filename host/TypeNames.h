// The words of data types for scripts and options, the same in every language.
#pragma once

#include <array>
#include <string>

namespace kelvarin {
// The words of JSON documents for the types of a plan's columns, by the values of plan::ColumnType.
inline constexpr std::array PlanTypeWords = {"text",    "character",   "boolean",
                                             "integer", "hexadecimal", "float"};

// The word for a data type of the module, a number from 1; empty for a type that has none.
std::string TypeWord(int type);

// The type of a word; 0 for any other text.
int TypeNamed(const std::string& word);

// All words, for a complaint.
std::string AllTypeNames();
}  // namespace kelvarin
