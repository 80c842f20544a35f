// What the cells of a column are, in words.
#pragma once

#include <string>

#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// How many are numbers, texts and so on, which is why the column has its type: "decimal numbers: 480, empty
// cells: 3". In UTF-8 and in the language in force.
std::string CellsInWords(const CellCounts& cells);
}  // namespace kelvarin::plan
