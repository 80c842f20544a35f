// What to set when no row of a file got a timestamp.
#pragma once

#include <string>

#include "host/ModuleLoader.h"
#include "host/guess/TimeGuess.h"

class CImportFilter;

namespace kelvarin::guess {

// The options that make these the settings of a run, quoted for a shell.
std::string OptionsText(const SettingList& settings);

// "certain", "likely" or "a guess".
std::string CertaintyText(Certainty sureness);

// One line that names the options which the guess proposes. `filter` has analysed the file at `path`.
std::string AdviseTimestamp(const ModuleLoader& module, const std::u16string& path,
                            const CImportFilter& filter);

}  // namespace kelvarin::guess
