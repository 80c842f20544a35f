// What a sidecar can't say of a file, in a file of the host's beside it: names, units and types of its
// columns, and by which letters its format is read.
#pragma once

#include <string>
#include <vector>

#include "contract/GuidedReading.h"

namespace kelvarin::sidecar {
// The path of the file for the columns of a source file: that path with ".columns" added.
std::u16string ColumnsPath(const std::u16string& source);

struct KeptChoices {
    std::vector<ColumnChoice> Columns;  // what is not as the analysis finds it
    std::u16string Letters;  // as IGuidedReading::ReadFormatsBy takes them; empty for the language's
};

// What was kept for a source file; nothing if there is no such file.
KeptChoices ReadChoices(const std::u16string& source);

// Keeps them. Empty, or why they are not kept: without `replaces` a file that exists stays as it is.
std::string SaveChoices(const std::u16string& source, const KeptChoices& choices, bool replaces = false);
}  // namespace kelvarin::sidecar
