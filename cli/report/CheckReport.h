// A check's result for people and for scripts.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/check/Findings.h"

namespace kelvarin::cli {

// Where the rejected rows went.
struct RejectsNote {
    std::string File;  // as given; empty without one
    std::uint64_t Rows = 0;
    std::string Failure;  // why it could not be written
};

// What to do about a finding, with the options or the commands that do it; empty if there is nothing to do.
std::string AdviceText(const check::CheckResult& result, const check::Finding& finding);

void WriteCheckText(std::ostream& out, const std::string& file, const check::CheckResult& result,
                    const std::vector<check::Finding>& findings, const RejectsNote& rejects);

// One line.
void WriteCheckJson(std::ostream& out, const std::string& file, const check::CheckResult& result,
                    const std::vector<check::Finding>& findings, const RejectsNote& rejects);

}  // namespace kelvarin::cli
