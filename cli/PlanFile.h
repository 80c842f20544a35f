// The file of --plan: JSON that says of what kinds files are, so that the next ones are read alike.
#pragma once

#include <string>

#include "host/plan/FileKinds.h"

namespace kelvarin::cli {
// The text of such a file.
std::string PlanText(const plan::FileKinds& kinds);

// The kinds that a text of such a file says. Nothing, and why in `complaint`, for any other text.
std::optional<plan::FileKinds> ParsePlan(const std::string& text, std::string& complaint);

// Both raise no exception: a complaint that isn't empty says why there is none. `file` is in UTF-8.
std::optional<plan::FileKinds> ReadPlanFile(const std::string& file, std::string& complaint);
std::string WritePlanFile(const std::string& file, const plan::FileKinds& kinds);
}  // namespace kelvarin::cli
