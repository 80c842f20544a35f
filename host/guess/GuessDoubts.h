// How sure a guess is, and what speaks against it, in words.
#pragma once

#include "host/guess/TableTrial.h"
#include "host/guess/TimeCandidate.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::guess {

// What was found where, as one phrase.
std::string BasisOf(const TimeCandidate& candidate);

// Settles how sure the guess is and adds its objections.
void AddDoubts(const TableTrial& trial, const TimeCandidate& candidate, TimeGuess& guess);

}  // namespace kelvarin::guess
