// A proposal for the time settings of a file, with all that speaks for and against it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/Certainty.h"
#include "host/ModuleLoader.h"
#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/SettingText.h"

namespace kelvarin::guess {
struct TimeGuess {
    SettingList Settings;    // empty if the file has no table to guess from
    std::u16string Letters;  // of the format among them, if the language in force has others; else empty
    Certainty Sureness = Certainty::Certain;
    std::string Basis;                    // one phrase: what was found where
    std::vector<std::string> Objections;  // what speaks against it, a phrase each
    std::vector<Assumption> Assumed;      // of a plan: all that was found, the times among it
    std::vector<ColumnChoice> Columns;    // that the settings alone would give otherwise
    Remedy OtherWay;         // to read times that the settings can't; without text if there is none
    std::string OtherBasis;  // of a proposal that is nearly as good; empty if there is none
    SettingList OtherSettings;
    std::string Failure;           // why there is no guess
    bool IsFixedInterval = false;  // no column holds times that a format can read
    std::size_t Rows = 0;          // sampled
    std::size_t Read = 0;          // that the format fits
    std::size_t Rising = 0;        // later than all before
    std::string Saved;             // the sidecar that now holds it; empty for none
    std::string SaveFailure;       // why it was not saved, though asked for
    bool IsSaveLost = false;       // there was no sidecar, and there could be none
};

// Looks at rows from all over the file, under the settings in force; reads some MiB at most. Of settings and
// profile nothing is changed.
TimeGuess GuessTime(const ModuleLoader& module, const std::u16string& path);

// Says why no row has a time and what the guess proposes, with the settings that do it; without settings if
// there is no guess. `reading` is how the file at `path` was read.
Remedy AdviseTimestamp(const ModuleLoader& module, const std::u16string& path, const Reading& reading);

struct GuessOptions {
    bool GuessTime = false;
    bool Save = false;  // write the guess to a sidecar beside the file
};

// Guesses the times of a file and makes the guess the settings of whatever is done with it while the object
// lives, as a SettingsLayer does. What the user has chosen stays, and so does what a sidecar says; an
// objection of the guess then says so. Does nothing without GuessOptions::GuessTime.
class GuessLayer {
  public:
    GuessLayer(const ModuleLoader& module, const std::u16string& path, const GuessOptions& options,
               const std::vector<ParsedSetting>& chosen);

    // Null without GuessOptions::GuessTime.
    const TimeGuess* Guess() const { return Made ? &*Made : nullptr; }

  private:
    SettingsLayer Layer;
    std::optional<TimeGuess> Made;
};
}  // namespace kelvarin::guess
