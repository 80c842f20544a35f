// A plan that is followed, as the guess that reports show.
#pragma once

#include "host/guess/TimeGuess.h"
#include "host/plan/AutomaticReading.h"

namespace kelvarin::plan {
// `reading` has a plan.
guess::TimeGuess GuessOf(const AutomaticReading& reading);

// Why no sidecar can say how a file is read of which a copy is needed.
std::string WhyNotSaved();

// Writes the sidecar of the file at `path`, so that the next reading is the same without looking, and notes
// in the guess what became of that.
void SaveGuess(const ModuleLoader& module, const std::u16string& path, const AutomaticReading& reading,
               guess::TimeGuess& guess);
}  // namespace kelvarin::plan
