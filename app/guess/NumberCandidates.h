// Columns of numbers that count time: since a start, or since 1970.
#pragma once

#include <vector>

#include "app/guess/TableTrial.h"
#include "app/guess/TimeCandidate.h"

// A candidate for each column of rising numbers whose name speaks of time, and for the first one if no column
// has a name.
std::vector<TimeCandidate> FindNumberCandidates(const TableTrial& trial);
