// A picture of a file's signals without a window.
#pragma once

#include <string>

#include "host/ModuleLoader.h"
#include "view/program/Arguments.h"

namespace kelvarin::view {
// What became of it, for the program to print.
struct PlotOutcome {
    std::string Failure;   // one clause; empty: the picture is written
    bool IsUsage = false;  // the failure is one of the command line
    std::string Left;      // what was left out of the picture; empty for nothing
};

// Reads the one file of the arguments and writes the picture. There must be a QApplication.
PlotOutcome PlotFile(const ModuleLoader& module, const Arguments& arguments);
}  // namespace kelvarin::view
