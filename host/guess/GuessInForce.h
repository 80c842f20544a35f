// A guess as the settings of the work on one file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/SettingText.h"
#include "host/guess/TimeGuess.h"

namespace kelvarin::guess {

struct GuessOptions {
    bool GuessTime = false;
    bool Save = false;  // write the guess beside the file
};

// Writes the settings in force beside the file, where no sidecar is. Empty, or why they were not written.
std::string SaveBeside(const ModuleLoader& module, const std::u16string& path);

// Guesses the times of a file and makes the guess the settings of whatever is done with it while the object
// lives. What the user has chosen stays, and so does what a sidecar says; the guess then reports it. Nothing
// at all without GuessTime.
class GuessInForce {
  public:
    GuessInForce(const ModuleLoader& module, const std::u16string& path, const GuessOptions& options,
                 const std::vector<ParsedSetting>& chosen);

    // Null without GuessTime.
    const TimeGuess* Guess() const { return Made ? &*Made : nullptr; }

  private:
    void LayOver(const std::vector<ParsedSetting>& chosen);

    SettingsLayer Layer;
    std::optional<TimeGuess> Made;
};

}  // namespace kelvarin::guess
