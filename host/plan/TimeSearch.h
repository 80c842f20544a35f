// Finds the columns that hold the times of a table.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/Labels.h"
#include "host/plan/Preamble.h"
#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
// Rows of the table in the sample, cut.
struct TableRows {
    std::vector<std::vector<std::u16string>> Cells;
    std::size_t Width = 0;         // cells of most rows
    std::vector<bool> IsAfterGap;  // rows between it and the one before are not in the sample
};

// What becomes of the sampled rows under a recipe.
struct TimeTrial {
    std::size_t Read = 0;     // rows with a time
    std::size_t Rising = 0;   // later than the row before
    std::size_t Equal = 0;    // as late as the row before
    std::size_t Falling = 0;  // earlier
    std::int64_t First = 0, Last = 0;
    std::int64_t MedianStep = 0;  // of rising rows

    bool IsDescending() const { return Falling > 2 * Rising; }
};

// What the order of day, month and year rests on.
enum class OrderProof {
    Unneeded,  // the times have no date, or read the same in every order
    Texts,     // other orders don't fit all texts
    Name,      // the column's name spells the format
    Steps,     // the rows follow each other evenly or rise
    Custom,    // people write dates with dots, or with twelve hours, in one order only
    None
};

struct FoundTimes {
    TimeRecipe Recipe;
    TimeTrial Trial;
    double Score = 0;
    OrderProof Order = OrderProof::Unneeded;
    bool IsUnitNamed = true;           // of a number; of an interval, it is in the preamble
    bool IsNamed = false;              // the columns' names are words for times
    std::optional<std::size_t> Rival;  // another column whose times are as good
};

// The rows of a found table.
TableRows RowsOf(const FileSample& sample, const FoundTable& table);

// The best times of the table; nothing if no column holds any.
std::optional<FoundTimes> FindTimes(const TableRows& rows, const Labels& labels, const PreambleClues& clues);

TimeTrial Try(const TimeRecipe& recipe, const TableRows& rows);
}  // namespace kelvarin::plan
