// The one way to standard error.
#pragma once

#include <string>

// One line: the program, the file, what is wrong with it.
void ComplainAbout(const std::string& file, const std::string& reason);

// One line about the program itself.
void Complain(const std::string& reason);
