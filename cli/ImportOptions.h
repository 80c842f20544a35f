// What the import of one file and that of several into one device share.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cli/CommandLine.h"
#include "cli/FileReading.h"
#include "cli/ProgressLine.h"
#include "host/HostSession.h"

namespace kelvarin::cli {
// The options of the command itself.
struct ImportOptions {
    bool KeepSamples = false;              // every one, in memory
    std::optional<std::size_t> Samples;    // how many of each signal the JSON document lists
    std::size_t Messages = 10'000;         // how many it lists at most
    std::string StorePath;                 // of the file for every sample; empty: none
    std::optional<std::int64_t> BaseTime;  // start of relative time in nanoseconds; none: the fixed epoch
    std::function<void()> OnProgress;      // called while a run goes on; may be empty
    bool Joins = false;                    // the files make one device
    std::size_t Threads = 1;               // that read a large file
    ReadingOptions Reading;
};

// Without a sink and a reading.
RunOptions MakeRunOptions(const CommonOptions& common, const ImportOptions& options, ProgressLine& progress);

// Empty, or why the file counts as failed, with what to do.
std::string FailureText(const std::u16string& path, const RunResult& result, const HostSession& session);
}  // namespace kelvarin::cli
