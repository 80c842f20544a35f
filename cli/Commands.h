// The commands; each adds itself, with its options, to the command line.
#pragma once

#include "cli/CommandLine.h"

namespace kelvarin::cli {

void AddImportCommand(CommandLine& line);
void AddAnalyzeCommand(CommandLine& line);
void AddExplainCommand(CommandLine& line);
void AddCheckCommand(CommandLine& line);
void AddSidecarCommand(CommandLine& line);
void AddVerifyCommand(CommandLine& line);
void AddDialogCommand(CommandLine& line);

// The tools around the program: completion and manual.
void AddShellCommands(CommandLine& line);

}  // namespace kelvarin::cli
