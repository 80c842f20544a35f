// The commands and options of the command line, and what shells and the manual make of them.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kelvarin::cli {

struct ListedOption {
    std::string Name;         // with its dashes
    std::string Value;        // its type, such as FILE or none|memory; empty for a flag
    std::string Description;  // in the user's language
};

struct ListedCommand {
    std::string Name;
    std::string Description;
    std::string Examples;  // several lines; may be empty
    std::vector<ListedOption> Options;
};

// Writes the script by which a shell completes the command line: bash, zsh or fish. False for any other.
bool WriteCompletion(std::ostream& out, const std::string& shell, const std::vector<ListedCommand>& commands);

// Writes the page for section 1 of the manual in the format of man(7).
void WriteManual(std::ostream& out, const std::string& version, const std::vector<ListedCommand>& commands);

}  // namespace kelvarin::cli
