// What became of the copy of a file.
#pragma once

#include <ostream>
#include <string>

#include "cli/report/TextLayout.h"
#include "host/plan/CleanCopy.h"

namespace kelvarin::cli {
struct PrepareReport {
    std::string File;
    std::string Copy;                         // its path; empty if it wasn't written
    std::string Reason;                       // why not; else empty
    const plan::ReadingPlan* Plan = nullptr;  // null if there is none
    plan::CopyResult Result;
};

void WritePrepareText(ReportStream out, const PrepareReport& report);
void WritePrepareJson(std::ostream& out, const PrepareReport& report);
}  // namespace kelvarin::cli
