// The module's standard formats in the place of those made from a text.
#pragma once

#include "host/ModuleLoader.h"
#include "host/guess/TableTrial.h"
#include "host/guess/TimeCandidate.h"

namespace kelvarin::guess {

// Takes the first standard format that reads every sampled row as the candidate's own does: the user finds it
// in the settings dialog's list.
void UseStandardSpelling(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate);

}  // namespace kelvarin::guess
