// The one way to standard error.
#pragma once

#include <string>

namespace kelvarin::cli {

// One line: the program, the file, what is wrong with it.
void ComplainAbout(const std::string& file, const std::string& reason);

// A file's name as valid UTF-8, whatever its bytes are.
std::string PrintableName(const std::string& file);

// One line about the program itself.
void Complain(const std::string& reason);

}  // namespace kelvarin::cli
