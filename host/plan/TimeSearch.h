// Finds the columns that hold the times of a table.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "host/plan/DateStyle.h"
#include "host/plan/Labels.h"
#include "host/plan/Preamble.h"
#include "host/plan/TimeRecipe.h"
#include "host/plan/TimeTrial.h"

namespace kelvarin::plan {
struct FoundTimes {
    TimeRecipe Recipe;
    TimeTrial Trial;
    double Score = 0;  // comparable between the times of one table; 1 at most but for a little
    OrderProof Order = OrderProof::Unneeded;
    bool IsOrderElsewhere = false;     // the order rests on another file of the kind
    bool IsUnitNamed = true;           // of a number; of an interval, it is in the preamble
    bool IsClockShort = false;         // "12:30" without a date and without a name that spells it
    bool IsNamed = false;              // the columns' names are words for times
    std::optional<std::size_t> Rival;  // another column whose times are as good
};

// The columns that a recipe reads, from 0.
std::vector<std::size_t> ColumnsOf(const TimeRecipe& recipe);

// True if both read the same columns as times of the same kind; what one file may leave open doesn't count.
bool AreOfOneForm(const TimeRecipe& one, const TimeRecipe& other);

// The best times of the table; rows at an interval if no column holds any; nothing without rows.
std::optional<FoundTimes> FindTimes(const TableRows& rows, const Labels& labels, const PreambleClues& clues);

// The times of a table whose file is of one kind with another: in the columns of `like`, where both together
// show more than one.
FoundTimes FindTimesLike(const FoundTimes& like, const TableRows& rows, const Labels& labels,
                         const PreambleClues& clues);
}  // namespace kelvarin::plan
