// What people read about a file.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "host/HostSession.h"

namespace kelvarin::cli {

// The detected format in words and the columns.
void WriteFormatText(std::ostream& out, const std::string& file, const CImportFilter& filter);

// The signals with their samples, the time they span and the messages. `advice` is a line about what to do
// next, or empty.
void WriteRunText(std::ostream& out, const RunResult& result, HostSession& session,
                  const std::string& advice);

}  // namespace kelvarin::cli
