// What a clean copy does to a file, as people read it.
#pragma once

#include <string>

#include "host/plan/CleanCopy.h"

namespace kelvarin::plan {
// "3 (lines 1, 2, 9)", with "..." where more lines are meant than are named.
std::string LinesInWords(const LinesLeftOut& lines);

// One sentence about a copy that is read in place of its file.
std::string CopyInWords(const CopyResult& copy);
}  // namespace kelvarin::plan
