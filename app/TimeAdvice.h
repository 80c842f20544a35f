// What to set when no row of a file got a timestamp.
#pragma once

#include <string>

#include "app/ModuleLoader.h"

class CImportFilter;

// One line that names the options which the guess proposes. `filter` has analysed the file at `path`.
std::string AdviseTimestamp(const ModuleLoader& module, const std::u16string& path,
                            const CImportFilter& filter);
