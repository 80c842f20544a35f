// The times of a plan in words.
#pragma once

#include <string>

#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// What the times are and which columns hold them: date and time in column 1 ("Zeit"), day before month. In
// UTF-8 and in the language in force. The plan must have times.
std::string TimesInWords(const ReadingPlan& plan);

// The column as the file names it: column 3 ("Druck"). `column` counts from 0.
std::string ColumnInWords(const ReadingPlan& plan, std::size_t column);
}  // namespace kelvarin::plan
