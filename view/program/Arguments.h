// The command line of kelvarin-view.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvarin::view {
// All texts are UTF-8.
struct Arguments {
    std::vector<std::string> Files;
    std::string Picture;                // of --plot; empty: a window opens
    std::vector<std::string> Signals;   // of --signals; empty: the first ones
    std::string From, To;               // moments; empty: all
    int Width = 1200, Height = 800;     // pixels of the picture
    std::vector<std::string> Settings;  // of --set, KEY=VALUE each
    std::string Language;               // empty: the user's
    bool WantsHelp = false, WantsVersion = false;
};

// Empty, or what is wrong: one clause.
std::string ParseArguments(const std::vector<std::string>& words, Arguments& arguments);

// The help.
std::string UsageText();
}  // namespace kelvarin::view
