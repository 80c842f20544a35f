// The module's standard formats in the place of those made from a text.
#pragma once

#include "app/ModuleLoader.h"
#include "app/guess/TableTrial.h"
#include "app/guess/TimeCandidate.h"

// Takes the first standard format that reads every sampled row as the candidate's own does: the user finds it
// in the settings dialog's list.
void UseStandardSpelling(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate);
