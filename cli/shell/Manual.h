// The manual page.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/shell/CommandTree.h"

namespace kelvarin::cli {

// Writes the page for section 1 in the format of man(7).
void WriteManual(std::ostream& out, const std::string& version, const std::vector<ListedCommand>& commands);

}  // namespace kelvarin::cli
