// One sidecar for many files of a kind.
#pragma once

#include <string>
#include <vector>

#include "host/ModuleLoader.h"

namespace kelvarin::cli {

// Copies the sidecar beside each file that it fits; one that is there already is replaced only with `force`.
// A path, or with `json` a line, per file on standard output, the reason of each refusal and a summary on
// standard error. ExitDone if every file got it, else ExitFileFailed.
int ApplySidecar(const ModuleLoader& module, const std::string& sidecar,
                 const std::vector<std::string>& files, bool force, bool json);

}  // namespace kelvarin::cli
