// Where two sidecars differ.
#pragma once

#include <string>

#include "host/ModuleLoader.h"

namespace kelvarin::cli {

// Writes a line per field that differs, as it is understood: ExitDone if there is none, ExitFindings if there
// are some, ExitFileFailed if one of the files can't be read without an error.
int DiffSidecars(const ModuleLoader& module, const std::string& one, const std::string& other, bool json);

}  // namespace kelvarin::cli
