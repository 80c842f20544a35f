// Why this separator, this first line and this header were taken, in sentences.
#pragma once

#include <string>
#include <vector>

#include "host/explain/Explanation.h"

namespace kelvarin::explain {

// Why the separator, then why the header.
std::vector<std::string> FormatReasons(const Explanation& explanation);

// The separator that came next and what it would have given.
std::string RunnerUp(const AnalysisRecord& record);

// How far the columns were analysed and what ended it.
std::string RowsRead(const AnalysisRecord& record);

}  // namespace kelvarin::explain
