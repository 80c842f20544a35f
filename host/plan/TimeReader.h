// Reads a text that is cut into its numbers and words as a time.
#pragma once

#include <optional>

#include "host/plan/TimeGroups.h"
#include "host/plan/TimeText.h"

namespace kelvarin::plan {
// Nothing for a text that is no time in this style, and for none that could be cut.
std::optional<ParsedTime> ReadTime(const std::optional<TimeGroups>& cut, const TimeStyle& style);
}  // namespace kelvarin::plan
