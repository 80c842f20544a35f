// What a check found, in words, each with what to do about it.
#pragma once

#include <string>
#include <vector>

#include "host/Remedy.h"
#include "host/check/CheckRun.h"

namespace kelvarin::check {
struct Finding {
    const char* Kind = "";                  // a word for scripts; of dropped rows that of NameOf
    bool IsFault = true;                    // else a note: it leaves a file clean
    std::string Text;                       // one clause, in the language in force
    Remedy Advice = {};                     // without text, settings and action if there is nothing to do
    std::uint64_t Count = 0;                // of the rows, cells or lines it is about; 0 if it is about none
    std::vector<std::uint64_t> Lines = {};  // of the first of these and the last, rising
    int Column = 0;                         // from 1; 0 if it is not about one column
};

// The faults first; none if the run could not begin.
std::vector<Finding> Judge(const CheckResult& result);

// "line 3", or "lines 3, 4, 5 ... 1204"; empty without a place.
std::string LinesInWords(const FilePlaces& places);

// True if the file was read to its end without a fault.
bool IsClean(const CheckResult& result, const std::vector<Finding>& findings);

// The settings that name a table instead of leaving it to the analysis.
SettingList TableSettings(const Reading& table);
}  // namespace kelvarin::check
