// The command line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/support/ProfileOverlay.h"

enum class Command { Import, Analyze, Sidecar, Dialog };

constexpr std::size_t AllSamples = std::numeric_limits<std::size_t>::max();

struct Options {
    Command What = Command::Import;
    std::vector<std::string> Files;                                          // as given, at least one
    std::string ProfilePath;                                                 // empty: the user's own
    std::vector<std::pair<std::u16string, ProfileOverlay::Value>> Settings;  // for this run only
    bool Json = false;
    bool KeepAll = false;                  // keep every sample in memory
    std::optional<std::size_t> Samples;    // how many of each signal the report lists
    std::string Script;                    // of dialog: a file, or - for standard input
    bool CheckOnly = false;                // of sidecar: read, don't write
    std::optional<std::int64_t> BaseTime;  // start of relative time in nanoseconds; none: the fixed epoch
};

// Reads the command line into `options`. Answers nothing if there is work to do, else the exit status after
// help, version, or one line of complaint on standard error.
std::optional<int> ParseCommandLine(const std::vector<std::string>& arguments, Options& options);
