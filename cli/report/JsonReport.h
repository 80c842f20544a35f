// The JSON documents of the program: one line per file.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "host/HostSession.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::cli {
// Writes a document in a line of its own, with U+FFFD for bytes that are no UTF-8.
void WriteDocument(std::ostream& out, const nlohmann::ordered_json& document);

// Adds to a document "settings", which holds every field of the filter's record but the columns, and
// "columns", which holds every entry of these, in order. Both are null for a filter that shows no settings.
void AddSettings(nlohmann::ordered_json& document, const CImportFilter& filter);

// What AnalyzeFile found in the filter's file. `guess` may be null.
void WriteAnalyzeJson(std::ostream& out, const std::string& file, bool analyzed, const CImportFilter& filter,
                      const plan::Guess* guess);

// What became of a run; the first `samples` of each signal, or no key for them. `guess` may be null. With
// `isModuleAlone` it has the fields alone that documents had before anything was found.
void WriteImportJson(std::ostream& out, const std::string& file, const RunResult& result,
                     const HostSession& session, std::optional<std::size_t> samples, const plan::Guess* guess,
                     bool isModuleAlone);
}  // namespace kelvarin::cli
