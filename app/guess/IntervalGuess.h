// What is left where no format reads the times of a file: a fixed interval.
#pragma once

#include "app/guess/TableTrial.h"
#include "app/guess/TimeGuess.h"

// The interval and the start of times that can be told but not read by a format; else one second per row.
void GuessInterval(const TableTrial& trial, TimeGuess& guess);
