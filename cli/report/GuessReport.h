// A guess as people and scripts read it.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "cli/report/TextLayout.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::cli {
// Some lines of a text report: how sure, what, the options, and a line for each objection.
void WriteGuessText(ReportStream out, const plan::Guess& guess);

// The value of the key "guess" of a document.
nlohmann::ordered_json GuessToJson(const plan::Guess& guess);
}  // namespace kelvarin::cli
