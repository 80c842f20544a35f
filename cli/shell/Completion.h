// Scripts that let a shell complete the command line.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/shell/CommandTree.h"

namespace kelvarin::cli {

// Writes the script of a shell: bash, zsh or fish. False for any other.
bool WriteCompletion(std::ostream& out, const std::string& shell, const std::vector<ListedCommand>& commands);

}  // namespace kelvarin::cli
