// The options --guess-time and --save.
#pragma once

#include "cli/CommandLine.h"
#include "host/guess/TimeGuess.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {

// Adds --guess-time to a command; the options outlive it.
inline CLI::Option* AddGuessOption(CLI::App& command, guess::GuessOptions& options) {
    return command.add_flag("--guess-time", options.GuessTime,
                            Phrase("Find out the columns and the format of the times, use and print them"));
}

// Adds --save too.
inline void AddGuessOptions(CLI::App& command, guess::GuessOptions& options) {
    CLI::Option* const guess = AddGuessOption(command, options);
    command.add_flag("--save", options.Save, Phrase("Keep what was guessed in FILE.info"))->needs(guess);
}

}  // namespace kelvarin::cli
