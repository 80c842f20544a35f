// The options --guess-time and --save.
#pragma once

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "host/guess/TimeGuess.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {
// Adds --guess-time to a command; the options outlive it.
inline CLI::Option* AddGuessOption(CLI::App& command, guess::GuessOptions& options) {
    return command.add_flag("--guess-time", options.GuessTime,
                            Phrase("Find out the columns and the format of the times, use and print them"));
}

// The status of the file's work, made worse if what --save was to keep is lost, which is complained about.
inline int WithSaving(int status, const std::string& file, const guess::TimeGuess* guess) {
    if (guess == nullptr || !guess->IsSaveLost) return status;
    return WorseStatus(status, Fail(file + ".info", guess->SaveFailure));
}

// Adds --save too.
inline void AddGuessOptions(CLI::App& command, guess::GuessOptions& options) {
    CLI::Option* const guess = AddGuessOption(command, options);
    command.add_flag("--save", options.Save, Phrase("Keep what was guessed in FILE.info"))->needs(guess);
}
}  // namespace kelvarin::cli
