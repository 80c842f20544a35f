// Dates with or without a time, in one column or two, and times of day.
#pragma once

#include <optional>
#include <vector>

#include "host/guess/TableTrial.h"
#include "host/guess/TimeCandidate.h"

namespace kelvarin::guess {

// The best reading of each column, or of it with a neighbour, whose text looks like a date or a time of day.
std::vector<TimeCandidate> FindDateCandidates(const TableTrial& trial);

// The best of the shapes that read the same texts and differ in the order of day and month; nothing if none
// fits. `hint` tells what stands above the date.
std::optional<TimeCandidate> BestOrder(const TableTrial& trial, const std::vector<FormatShape>& shapes,
                                       const TextList& texts, const ColumnHint& hint);

}  // namespace kelvarin::guess
