// What was found of a file, as reports show it.
#pragma once

#include <string>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/Certainty.h"
#include "host/SettingText.h"
#include "host/plan/AutomaticReading.h"

namespace kelvarin::plan {
struct Guess {
    SettingList Settings;    // that read the file so; empty if a copy is read
    std::u16string Letters;  // of the format among them, if the language in force has others; else empty
    Certainty Sureness = Certainty::Certain;
    std::string Basis;                    // the text of the times among Assumed
    std::vector<std::string> Objections;  // all of Assumed
    std::vector<Assumption> Assumed;    // all that was found; no times if the user has said how they are read
    std::vector<OtherTable> Others;     // tables of the file that are not read
    std::vector<ColumnChoice> Columns;  // that the settings alone would give otherwise
    std::string Failure;                // why nothing was found; all else is then empty
    bool IsCopied = false;              // a copy is read
    bool IsFixedInterval = false;       // no column has times
    std::size_t Rows = 0;               // looked at
    std::size_t Read = 0;               // that have a time
    std::size_t Rising = 0;             // later than the one before
    std::string Saved;                  // the sidecar that now holds it; empty for none
    std::string SaveFailure;            // why it was not saved, though asked for
    bool IsSaveLost = false;            // there was no sidecar, and there could be none
};

// What `reading` follows; with a failure if it has no plan.
Guess GuessOf(const AutomaticReading& reading);

// Why no sidecar can say how a file is read of which a copy is needed.
std::string WhyNotSaved();

// Writes the sidecar of the file at `path`, so that the next reading is the same without looking, and notes
// in the guess what became of that.
void SaveGuess(const ModuleLoader& module, const std::u16string& path, const AutomaticReading& reading,
               Guess& guess);
}  // namespace kelvarin::plan
