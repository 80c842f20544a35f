// The options --guess-time and --save.
#pragma once

#include "cli/CommandLine.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::cli {

// Adds --guess-time to a command; the options outlive it.
CLI::Option* AddGuessOption(CLI::App& command, guess::GuessOptions& options);

// Adds --save too.
void AddGuessOptions(CLI::App& command, guess::GuessOptions& options);

}  // namespace kelvarin::cli
