// What people read about a file.
#pragma once

#include <string>

#include "cli/report/TextLayout.h"
#include "host/HostSession.h"

namespace kelvarin::cli {
// The detected format in words and the columns, as far as the filter shows its settings.
void WriteFormatText(ReportStream out, const std::string& file, const CImportFilter& filter,
                     const plan::AutomaticReading& reading);

// The signals with their samples and the time they span.
void WriteSignalsText(ReportStream out, const RunResult& result, const store::StoredDevice& device,
                      bool isRelative);

void WriteMessagesText(ReportStream out, const MessageList& messages);

// Both of a run. `advice` is a line about what to do next, or empty.
void WriteRunText(ReportStream out, const RunResult& result, const HostSession& session,
                  const std::string& advice);
}  // namespace kelvarin::cli
