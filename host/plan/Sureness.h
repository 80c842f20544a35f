// What a plan assumes of a file, in words, and how sure that is.
#pragma once

#include <string>
#include <vector>

#include "host/Certainty.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// One assumption, in UTF-8 and in the language in force.
struct Assumption {
    std::string Kind;  // "table", "times", "rows", "units" or "types"
    std::string Text;  // what was found
    Certainty Sureness = Certainty::Certain;
    std::vector<std::string> Objections;  // what speaks against it, a phrase each
};

// In the order above. "times" is always among them, the others where there is something to say.
std::vector<Assumption> Assumptions(const ReadingPlan& plan);

// How sure it is that every row comes out with its own time: the least sure of table, times and rows.
Certainty SurenessOf(const std::vector<Assumption>& assumptions);
}  // namespace kelvarin::plan
