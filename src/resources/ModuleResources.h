// The state of this module: its string table and, once it is loaded, its application object.
#pragma once

#include "platform/framework/Module.h"

// The one state of the module, made at its first use.
ModuleState& CsvImportModule();
