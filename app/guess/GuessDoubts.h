// How sure a guess is, and what speaks against it, in words.
#pragma once

#include "app/guess/TableTrial.h"
#include "app/guess/TimeCandidate.h"
#include "app/guess/TimeGuess.h"

// What was found where, as one phrase.
std::string BasisOf(const TimeCandidate& candidate);

// Settles how sure the guess is and adds its objections.
void AddDoubts(const TableTrial& trial, const TimeCandidate& candidate, TimeGuess& guess);
