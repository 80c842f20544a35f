// What is left where no format reads the times of a file: a fixed interval.
#pragma once

#include "host/guess/TableTrial.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::guess {

// The interval and the start of times that can be told but not read by a format. False, with the guess left
// alone, if there are none.
bool GuessFromUnreadableTimes(const TableTrial& trial, TimeGuess& guess);

// One second per row.
void GuessAnyInterval(const TableTrial& trial, TimeGuess& guess);

}  // namespace kelvarin::guess
