// The JSON documents of the program: one line per file.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "host/HostSession.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::cli {

// What AnalyzeFile found in the filter's file. `guess` may be null.
void WriteAnalyzeJson(std::ostream& out, const std::string& file, bool analyzed, const CImportFilter& filter,
                      const guess::TimeGuess* guess);

// What became of a run; `samples` of each signal, or no samples at all. `guess` may be null.
void WriteImportJson(std::ostream& out, const std::string& file, const RunResult& result,
                     const HostSession& session, std::optional<std::size_t> samples,
                     const guess::TimeGuess* guess);

}  // namespace kelvarin::cli
