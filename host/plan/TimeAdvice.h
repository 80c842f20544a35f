// What to do about a run in which no row has a time.
#pragma once

#include <optional>
#include <string>

#include "host/ModuleLoader.h"
#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// FindPlan, with nothing for a file that can't be read or has a line too large for this process: an import
// says so.
std::optional<ReadingPlan> FindPlanIfReadable(const std::u16string& path, const FixedTable& fixed = {});

// Says why no row has a time, which times the table has that was read, and what makes these its times:
// settings, or a copy of the file. Neither if the table has no rows. `reading` is how the file at `path` was
// read.
Remedy AdviseTimes(const ModuleLoader& module, const std::u16string& path, const Reading& reading);
}  // namespace kelvarin::plan
