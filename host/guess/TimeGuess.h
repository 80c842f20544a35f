// A proposal for the time settings of a file, with all that speaks for and against it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/SettingText.h"

namespace kelvarin::guess {

enum class Certainty { Certain, Likely, Uncertain };

struct TimeGuess {
    // Keys and values as --set takes them, in UTF-8; empty if the file has no table to guess from.
    SettingList Settings;
    Certainty Sureness = Certainty::Certain;
    std::string Basis;                    // one phrase: what was found where
    std::vector<std::string> Objections;  // what speaks against it, a phrase each
    std::string OtherBasis;               // of a proposal that is nearly as good; empty if there is none
    SettingList OtherSettings;
    std::string Failure;           // why there is no guess
    bool IsFixedInterval = false;  // no column holds times that a format can read
    std::size_t Rows = 0;          // sampled
    std::size_t Read = 0;          // that the format fits
    std::size_t Rising = 0;        // later than all before
    std::string Saved;             // the sidecar that now holds it; empty for none
    std::string SaveFailure;       // why it was not saved, though asked for
};

// Looks at rows from all over the file, under the settings in force; reads some MiB at most. Of settings and
// profile nothing is changed.
TimeGuess GuessTime(const ModuleLoader& module, const std::u16string& path);

}  // namespace kelvarin::guess
