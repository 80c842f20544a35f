// Columns of numbers that count time: since a start, or since 1970.
#pragma once

#include <vector>

#include "host/guess/TableTrial.h"
#include "host/guess/TimeCandidate.h"

namespace kelvarin::guess {

// A candidate for each column of rising numbers whose name speaks of time, and for the first one if no column
// has a name.
std::vector<TimeCandidate> FindNumberCandidates(const TableTrial& trial);

}  // namespace kelvarin::guess
