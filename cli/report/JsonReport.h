// The JSON documents of the program: one line per file.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

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

// What became of a run. All is borrowed.
struct ImportDocument {
    const std::string& File;
    const RunResult& Run;
    const store::StoredDevice* Device;         // null for none
    std::vector<const MessageList*> Messages;  // one after the other
    std::optional<std::size_t> Samples;        // so many of each signal; none: no key for them
    const plan::Guess* Guess;                  // null for none
    // That the signals' columns are of; null for a document with the fields alone that it had before anything
    // was found.
    const CImportFilter* Filter = nullptr;
};

// `more` are keys of an object, added to the document.
void WriteImportJson(std::ostream& out, const ImportDocument& document, const nlohmann::ordered_json& more);
void WriteImportJson(std::ostream& out, const ImportDocument& document);
}  // namespace kelvarin::cli
