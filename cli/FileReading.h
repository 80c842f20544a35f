// How a command reads a file: the options for it, and what there is to complain about.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "cli/CommandLine.h"
#include "host/FileReading.h"

namespace kelvarin::cli {
// Adds --no-guess, --guess-time and the options for single columns to a command; the options outlive it.
void AddReadingOptions(CLI::App& command, ReadingOptions& options);

// Adds --save.
void AddSaveOption(CLI::App& command, ReadingOptions& options);

// Reads as the library does, until Ctrl-C.
class FileReading : public kelvarin::FileReading {
  public:
    // `onProgress` gets each new percentage of the making of a copy; may be empty.
    FileReading(const ModuleLoader& module, const std::string& file, const CommonOptions& common,
                const ReadingOptions& options, std::function<void(std::uint32_t)> onProgress = {});

    // The status of the file's work, made worse if what --save was to keep is lost, a column isn't there, or
    // cells are not as a plan file says, which is complained about.
    int WithComplaints(int status) const;

  private:
    const std::string File;
};
}  // namespace kelvarin::cli
