// What a check has to say, in words, each with what to do about it.
#pragma once

#include <string>
#include <vector>

#include "host/check/CheckResult.h"

namespace kelvarin::check {

struct Finding {
    const char* Kind = "";  // a word for scripts
    bool IsFault = true;    // else a note: it leaves a file clean
    std::string Text;
    std::string Remedy;  // empty if there is nothing to do
};

// The faults first. `timeAdvice` is what to set if no row has a time; empty without such advice.
std::vector<Finding> Judge(const CheckResult& result, const std::string& timeAdvice);

// Findings about dropped rows, and about the times of the others.
void JudgeDropped(const CheckResult& result, const std::string& timeAdvice, std::vector<Finding>& findings);
void JudgeTimes(const CheckResult& result, std::vector<Finding>& findings);

// Options that begin the table at the rows that were found above it; there are some.
std::string TableOptions(const CheckResult& result);

}  // namespace kelvarin::check
