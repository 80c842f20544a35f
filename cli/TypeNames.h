// The words of --type.
#pragma once

#include <string>

namespace kelvarin::cli {
// The word for a data type of the module, a number from 1; empty for a type that has none.
std::string TypeOption(int type);

// The type of a word; 0 for any other text.
int TypeNamed(const std::string& word);

// All words, for a complaint.
std::string AllTypeNames();
}  // namespace kelvarin::cli
