// One plan for the files of a command: found over all of them, or kept in the file of --plan.
#pragma once

#include <memory>
#include <string>

#include "cli/CommandLine.h"
#include "cli/FileReading.h"
#include "host/plan/FileKinds.h"
#include "platform/framework/ScratchFile.h"

namespace kelvarin::cli {
class ManyFiles;

constexpr const char* PlanOption = "--plan";

class SharedPlan {
  public:
    // Adds --plan to a command, which outlives this object.
    void AddOption(CLI::App& command);

    // Reads the file of --plan, or finds the plan of the files and writes it there if it is wanted; `reading`
    // then has it, and so have the processes of `many`. ExitDone, or another status after a complaint.
    int Prepare(const ModuleLoader& module, const CommonOptions& common, ManyFiles& many,
                ReadingOptions& reading);

  private:
    int Find(const ModuleLoader& module, const CommonOptions& common, const ManyFiles& many);
    int Read(const std::string& file);
    void GiveTo(ManyFiles& many);

    std::string PlanFile;   // of --plan; empty for none
    std::string KindsFile;  // from the process that has found them; empty for none
    std::optional<plan::FileKinds> Kinds;
    std::unique_ptr<ScratchFile> ForProcesses;
};
}  // namespace kelvarin::cli
