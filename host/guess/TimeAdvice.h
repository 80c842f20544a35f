// What to set when no row of a file got a timestamp.
#pragma once

#include "host/ModuleLoader.h"
#include "host/Reading.h"
#include "host/Remedy.h"

namespace kelvarin::guess {

// Says why no row has a time and what the guess proposes, with the settings that do it; without settings if
// there is no guess. `reading` is how the file at `path` was read.
Remedy AdviseTimestamp(const ModuleLoader& module, const std::u16string& path, const Reading& reading);

}  // namespace kelvarin::guess
