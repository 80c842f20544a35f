// The options --guess-time and --save, and what they do around the work on one file.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/CommandLine.h"
#include "app/guess/TimeGuess.h"

struct GuessOptions {
    bool GuessTime = false;
    bool Save = false;  // write the guess beside the file
};

// Adds --guess-time to a command; the options outlive it.
CLI::Option* AddGuessOption(CLI::App& command, GuessOptions& options);

// Adds --save too.
void AddGuessOptions(CLI::App& command, GuessOptions& options);

// Writes the settings in force beside the file, where no sidecar is. Empty, or why they were not written.
std::string SaveBeside(const ModuleLoader& module, const std::u16string& path);

// Guesses the times of a file and makes the guess the settings of whatever is done with it while the object
// lives. What the user has set by hand stays, and so does what a sidecar says; the guess then tells so.
// Nothing at all without --guess-time.
class GuessInForce {
  public:
    GuessInForce(const ModuleLoader& module, const CommonOptions& common, const GuessOptions& options,
                 const std::u16string& path);
    GuessInForce(const GuessInForce&) = delete;
    GuessInForce& operator=(const GuessInForce&) = delete;
    ~GuessInForce();

    // Null without --guess-time.
    const TimeGuess* Guess() const { return Made ? &*Made : nullptr; }

  private:
    void LayOver(const CommonOptions& common);
    const std::shared_ptr<ProfileStore> Before;
    std::optional<TimeGuess> Made;
};
