// What a guess is put together of, once the best candidate is known. Inside the guess only.
#pragma once

#include "host/guess/TimeCandidate.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::guess {

// What was found where, as one phrase.
std::string BasisOf(const TimeCandidate& candidate);

// Settles how sure the guess is and adds what speaks against it.
void AddObjections(const TimeCandidate& candidate, TimeGuess& guess);

// The settings that make a candidate the times of a file. The path is that of the file, whose own date is
// taken if its rows lack one.
SettingList SettingsFor(const TimeCandidate& candidate, const std::u16string& path);

// True if the times are times of day that run over midnight, so that they need a start date.
bool RunsOverMidnight(const TimeCandidate& candidate);

// The interval and the start of times that people can read and no format can. False, with the guess left
// alone, if there are none.
bool GuessFromUnreadableTimes(const TableTrial& trial, TimeGuess& guess);

// One second per row, for want of times.
void GuessAnyInterval(const TableTrial& trial, TimeGuess& guess);

}  // namespace kelvarin::guess
