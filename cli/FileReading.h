// How a command reads a file: by what is found of it, by what the user has said, or as the module alone does.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::cli {
struct ReadingOptions {
    bool NoGuess = false;
    bool GuessTime = false;    // says what is the default
    bool ColumnsOnly = false;  // as that of AutomaticOptions
    bool Copies = false;       // as that of AutomaticOptions
    bool Save = false;         // keep what was found in a sidecar beside the file
    std::vector<plan::ColumnWish> Wishes;
    std::u16string FormatLetters;            // as that of AutomaticOptions
    const plan::FileKinds* Kinds = nullptr;  // as that of AutomaticOptions
};

// The sentences with semicolons between them.
std::string Joint(const std::vector<std::string>& sentences);

// Adds --no-guess, --guess-time and the options for single columns to a command; the options outlive it.
void AddReadingOptions(CLI::App& command, ReadingOptions& options);

// Adds --save.
void AddSaveOption(CLI::App& command, ReadingOptions& options);

// What is found of a file, in force for everything that is done with it while the object lives.
class FileReading {
  public:
    // `onProgress` gets each new percentage of the making of a copy; may be empty.
    FileReading(const ModuleLoader& module, const std::string& file, const CommonOptions& common,
                const ReadingOptions& options, std::function<void(std::uint32_t)> onProgress = {});

    // For the options of a run or a check of the file.
    plan::AutomaticReading* Automatic() { return &Plan; }

    // True if a run has lost what a copy of the file keeps: it is to be done again, and is then done by the
    // copy.
    bool TakesCopy();

    // Why the file is not to be read by a plan file, in one sentence; empty if it may be. Guess() says it
    // too.
    const std::string& WhyUnlike() const { return Unlike; }

    // What was found; null if nothing was looked for.
    const plan::Guess* Guess() const { return Found ? &*Found : nullptr; }

    // The status of the file's work, made worse if what --save was to keep is lost, a column isn't there, or
    // cells are not as a plan file says, which is complained about.
    int WithComplaints(int status) const;

  private:
    void Save();

    const ModuleLoader& Module;
    const std::string File;
    const bool IsToBeSaved;
    plan::AutomaticReading Plan;
    std::string Unlike;
    std::optional<plan::Guess> Found;
};
}  // namespace kelvarin::cli
