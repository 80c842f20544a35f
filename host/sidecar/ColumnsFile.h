// What a sidecar can't say of a file: names, units and types of its columns, in a file of the host's beside
// it.
#pragma once

#include <string>
#include <vector>

#include "contract/GuidedReading.h"

namespace kelvarin::sidecar {
// The path of the file for the columns of a source file: that path with ".columns" added.
std::u16string ColumnsPath(const std::u16string& source);

// What was kept for a source file; none if there is no such file.
std::vector<ColumnChoice> ReadColumns(const std::u16string& source);

// Keeps what is not as the analysis finds it. Empty, or why it is not kept: one that exists stays as it is.
std::string SaveColumns(const std::u16string& source, const std::vector<ColumnChoice>& columns);
}  // namespace kelvarin::sidecar
