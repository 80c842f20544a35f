// A list of files spread over processes of this program.
#pragma once

#include <string>
#include <vector>

#include "cli/many/ManyFiles.h"

namespace kelvarin::cli {

// Does all files in at most `jobs` processes at a time, each with `arguments` before its files. What they
// write comes out in the order of the files, each file's output in one piece. Ctrl-C goes to all of them.
// Adds to the summary and returns the worst exit status.
int RunInProcesses(const std::vector<std::string>& arguments, std::size_t jobs,
                   const std::vector<std::string>& files, FilesSummary& summary);

}  // namespace kelvarin::cli
