// Times of files of one kind: what one file leaves open is taken from whichever file shows it.
#pragma once

#include "host/plan/TimeSearch.h"

namespace kelvarin::plan {
// Adds to the times of one file what those of another of its kind show of the order of day and month, the
// unit and the style. Where neither shows it, the other's reading is taken. The recipes read the same
// columns.
void AddEvidence(FoundTimes& times, const FoundTimes& other);

// True if the texts of both prove an order of day and month, and not the same.
bool AreOrdersOpposed(const FoundTimes& one, const FoundTimes& other);

// True if rows show the order of day and month beyond doubt.
bool IsOrderProven(const FoundTimes& times);
}  // namespace kelvarin::plan
