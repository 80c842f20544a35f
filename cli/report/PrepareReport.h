// What became of the copies of a file.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/report/TextLayout.h"
#include "host/plan/Preparation.h"

namespace kelvarin::cli {
struct PrepareReport {
    std::string File;
    std::string Reason;                       // why a copy wasn't written; else empty
    const plan::ReadingPlan* Plan = nullptr;  // null if there is none
    std::vector<plan::PreparedCopy> Copies;   // that were written
    std::size_t DeviceColumn = 0;             // from 1: that tells the devices apart; 0 for none
};

void WritePrepareText(ReportStream out, const PrepareReport& report);
void WritePrepareJson(std::ostream& out, const PrepareReport& report);
}  // namespace kelvarin::cli
