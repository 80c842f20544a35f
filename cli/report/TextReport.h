// What people read about a file.
#pragma once

#include <string>

#include "cli/report/TextLayout.h"
#include "host/HostSession.h"

namespace kelvarin::cli {
// The detected format in words and the columns, as far as the filter shows its settings.
void WriteFormatText(ReportStream out, const std::string& file, const CImportFilter& filter,
                     const plan::AutomaticReading& reading);

// The signals with their samples, the time they span and the messages. `advice` is a line about what to do
// next, or empty.
void WriteRunText(ReportStream out, const RunResult& result, const HostSession& session,
                  const std::string& advice);
}  // namespace kelvarin::cli
