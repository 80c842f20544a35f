// What surprises people about the way a file was read.
#pragma once

#include "host/explain/Explanation.h"

namespace kelvarin::explain {

// All of them, the most telling first.
std::vector<Surprise> FindSurprises(const Explanation& explanation);

// Those about where the table begins and ends, and about its names.
void FindTableSurprises(const Explanation& explanation, std::vector<Surprise>& found);

// Those about the values of columns.
void FindColumnSurprises(const Explanation& explanation, std::vector<Surprise>& found);

}  // namespace kelvarin::explain
