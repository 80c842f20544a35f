// The commands and options of a command line as shells and manuals list them.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kelvarin::cli {

struct ListedOption {
    std::string Name;         // with its dashes
    std::string Value;        // what stands behind it; empty for a flag
    std::string Description;  // in the user's language
};

struct ListedCommand {
    std::string Name;
    std::string Description;
    std::string Examples;  // several lines; may be empty
    std::vector<ListedOption> Options;
};

// The commands that help names, in its order.
std::vector<ListedCommand> ListCommands(const CLI::App& program);

}  // namespace kelvarin::cli
