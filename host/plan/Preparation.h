// A clean copy of a file for people, or one for each device whose rows are in it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/ImportFailure.h"
#include "host/plan/CleanCopy.h"
#include "host/plan/DeviceColumn.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
struct PreparedCopy {
    std::string Path;    // as the system has it
    std::string Device;  // whose rows it has; empty for all rows
    CopyResult Result = {};
};

// What a copy takes to be made.
struct Preparation {
    std::u16string Source;
    ImportFailure Failure;  // why there can be none; all below is then nothing
    std::optional<ReadingPlan> Plan;
    std::optional<DeviceColumn> Devices;  // nothing: one copy
};

// Looks at the whole file if its times are not in order. Raises nothing.
Preparation FindPreparation(const std::u16string& source);

// The copies to be made, still without results: one at the path `copy`, or one for each device, with its name
// before `ending` or before the extension.
std::vector<PreparedCopy> CopiesAt(const Preparation& preparation, const std::string& copy,
                                   const std::string& ending);

// Makes the copies, in the layout for people, and sets their results. Those after one that fails or is
// interrupted are not made and have none.
void WriteCopies(const Preparation& preparation, std::vector<PreparedCopy>& copies, CopyOptions options);
}  // namespace kelvarin::plan
