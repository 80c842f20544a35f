// The JSON documents of the program: one line per file.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "app/HostSession.h"

// What AnalyzeFile found in the filter's file.
void WriteAnalyzeJson(std::ostream& out, const std::string& file, bool analyzed, const CImportFilter& filter);

// What became of a run; `samples` of each signal, or no samples at all.
void WriteImportJson(std::ostream& out, const std::string& file, const RunResult& result,
                     const HostSession& session, std::optional<std::size_t> samples);
