// What was assumed of a file, for people and for scripts.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "cli/report/TextLayout.h"
#include "host/Certainty.h"

namespace kelvarin::cli {
// A line for each, the first with the label, and below it what speaks against it.
void WriteAssumptions(ReportStream out, std::string label, const std::vector<Assumption>& assumptions);

nlohmann::ordered_json AssumptionsToJson(const std::vector<Assumption>& assumptions);
}  // namespace kelvarin::cli
