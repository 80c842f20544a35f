// The settings that make a candidate the times of a file.
#pragma once

#include <string>

#include "host/guess/TimeCandidate.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::guess {

// Keys and values as --set takes them. The path is that of the file, whose own date stands in for one that
// its rows lack.
SettingList SettingsFor(const TimeCandidate& candidate, const std::u16string& path);

// True if the times are times of day that run over midnight, so that they need a start date.
bool RunsOverMidnight(const TimeCandidate& candidate);

}  // namespace kelvarin::guess
