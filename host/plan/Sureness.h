// What a plan assumes of a file, in words, and how sure that is.
#pragma once

#include <string>
#include <vector>

#include "host/Certainty.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
using kelvarin::Assumption;

// In the order of Assumption::Kind. "times" is always among them, the others where there is something to say.
std::vector<Assumption> Assumptions(const ReadingPlan& plan);

// "separated by commas", and "whole numbers".
std::string SeparatorInWords(const Cut& how);
std::string TypesInWords(ColumnType type);

// How sure it is that every row comes out with its own time: the least sure of table, times and rows.
Certainty SurenessOf(const std::vector<Assumption>& assumptions);
}  // namespace kelvarin::plan
