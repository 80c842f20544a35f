// What people read about a file.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "app/HostSession.h"

struct FormatSummary;

// The name of a separator of an index 0 to 3.
std::string SeparatorName(int separator);

// Separator, header and first line of data.
std::string FormatInWords(const FormatSummary& format);

// The module's data type of this number, 0 undefined to 8 string.
std::string DataTypeInWords(int type);

// The detected format in words and the columns.
void WriteFormatText(std::ostream& out, const std::string& file, const CImportFilter& filter);

// The signals with their samples, the time they span and the messages. `advice` is a line about what to do
// next, or empty.
void WriteRunText(std::ostream& out, const RunResult& result, HostSession& session,
                  const std::string& advice);
