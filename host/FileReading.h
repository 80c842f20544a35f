// How a file is read: by what is found of it, by what the user has said, or as the module alone does.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/PlanGuess.h"

namespace kelvarin {
struct ReadingOptions {
    bool NoGuess = false;
    bool GuessTime = false;    // says what is the default
    bool ColumnsOnly = false;  // as that of AutomaticOptions, as those below but for Save
    bool Copies = false;
    bool Save = false;  // keep what was found in a sidecar beside the file
    std::vector<plan::ColumnWish> Wishes;
    std::u16string FormatLetters;
    const plan::FileKinds* Kinds = nullptr;
    const std::atomic<bool>* Cancel = nullptr;
    std::function<void(std::uint32_t)> OnProgress;
};

// The sentences with semicolons between them.
std::string Joint(const std::vector<std::string>& sentences);

// What is found of a file, in force for everything that is done with it while the object lives.
class FileReading {
  public:
    // `chosen` are the settings that were chosen for this file; they are in force too while the object lives.
    FileReading(const ModuleLoader& module, const std::u16string& path,
                const std::vector<ParsedSetting>& chosen, const ReadingOptions& options);

    // For the options of a run or a check of the file.
    plan::AutomaticReading* Automatic() { return &Plan; }
    const plan::AutomaticReading* Automatic() const { return &Plan; }

    // True if a run has lost what a copy of the file keeps: it is to be done again, and is then done by the
    // copy.
    bool TakesCopy();

    // Why the file is not to be read by a plan file, in one sentence; empty if it may be. Guess() says it
    // too.
    const std::string& WhyUnlike() const { return Unlike; }

    // What was found; null if nothing was looked for.
    const plan::Guess* Guess() const { return Found ? &*Found : nullptr; }

  private:
    // Before the plan, whose settings lie over it.
    struct ChosenLayer {
        explicit ChosenLayer(const std::vector<ParsedSetting>& chosen) {
            for (const ParsedSetting& setting : chosen) Layer.Set(setting);
        }
        SettingsLayer Layer;
    };

    void Save();

    const ModuleLoader& Module;
    const std::u16string Path;
    const bool IsToBeSaved;
    const ChosenLayer Chosen;
    plan::AutomaticReading Plan;
    std::string Unlike;
    std::optional<plan::Guess> Found;
};
}  // namespace kelvarin
