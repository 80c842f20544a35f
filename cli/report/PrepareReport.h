// What became of the copies of a file.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/report/TextLayout.h"
#include "host/plan/CleanCopy.h"

namespace kelvarin::cli {
struct PreparedCopy {
    std::string Path;
    std::string Device;  // whose rows it has; empty for all rows
    plan::CopyResult Result;
};

struct PrepareReport {
    std::string File;
    std::string Reason;                       // why a copy wasn't written; else empty
    const plan::ReadingPlan* Plan = nullptr;  // null if there is none
    std::vector<PreparedCopy> Copies;         // that were written
    std::size_t DeviceColumn = 0;             // from 1: that tells the devices apart; 0 for none
};

void WritePrepareText(ReportStream out, const PrepareReport& report);
void WritePrepareJson(std::ostream& out, const PrepareReport& report);
}  // namespace kelvarin::cli
