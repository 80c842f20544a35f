// A check's result for people and for scripts.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/report/TextLayout.h"
#include "host/check/Findings.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::cli {
struct CheckReport {
    std::string File;  // as given
    check::CheckResult Result;
    std::vector<check::Finding> Findings;
    std::string RejectsFile;  // as given; empty without one
    std::uint64_t RejectedRows = 0;
    std::string RejectsFailure;          // why it could not be written
    const plan::Guess* Guess = nullptr;  // how the file was read; null if nothing was looked for
};

void WriteCheckText(ReportStream out, const CheckReport& report);

// One line.
void WriteCheckJson(std::ostream& out, const CheckReport& report);
}  // namespace kelvarin::cli
