// The subcommands. Each does all files and answers the exit status; a file that fails doesn't stop the
// others.
#pragma once

#include "app/ModuleLoader.h"
#include "app/Options.h"

int RunImportCommand(const ModuleLoader& module, const Options& options);
int RunAnalyzeCommand(const ModuleLoader& module, const Options& options);
int RunSidecarCommand(const ModuleLoader& module, const Options& options);
int RunDialogCommand(const ModuleLoader& module, const Options& options);
