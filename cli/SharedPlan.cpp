#include "cli/SharedPlan.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "cli/Complaints.h"
#include "cli/PlanFile.h"
#include "cli/many/ManyFiles.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
constexpr const char* KindsOption = "--kinds";

bool Exists(const std::string& file) {
    std::error_code ignored;
    return std::filesystem::exists(PathForStream(PathFromNative(file)), ignored);
}
}  // namespace

void SharedPlan::AddOption(CLI::App& command) {
    command
        .add_option(
            PlanOption, PlanFile,
            Phrase("Read files as the plan in FILE says, and no others; if there is no such file, the "
                   "plan that is found is kept there"))
        ->type_name("FILE")
        ->excludes(command.get_option("--no-guess"));
    command.add_option(KindsOption, KindsFile)->group("");
}

int SharedPlan::Prepare(const ModuleLoader& module, const CommonOptions& common, ManyFiles& many,
                        ReadingOptions& reading) {
    int status = ExitDone;
    if (!KindsFile.empty()) {
        status = Read(KindsFile);
    } else if (!PlanFile.empty() && Exists(PlanFile)) {
        status = Read(PlanFile);
        if (Kinds) Kinds->PlanFile = PathFromNative(PlanFile);
    } else if (!reading.NoGuess && !many.IsShare()) {
        status = Find(module, common, many);
    }
    if (status != ExitDone || !Kinds) return status;
    reading.Kinds = &*Kinds;
    if (many.HasProcesses()) GiveTo(many);
    return ExitDone;
}

int SharedPlan::Find(const ModuleLoader& module, const CommonOptions& common, const ManyFiles& many) {
    const std::vector<std::string> files = many.FilesOf(common.Files);
    if (files.size() < 2 && PlanFile.empty()) return ExitDone;
    std::vector<std::u16string> paths;
    for (const std::string& file : files) {
        const std::u16string path = PathFromNative(file);
        if (plan::IsPlanWanted(module, path, common.Settings)) paths.push_back(path);
    }
    plan::FileKinds found = plan::FindKinds(std::move(paths));
    if (!PlanFile.empty()) {
        std::vector<std::string> inputs = SidecarsOf(files);
        inputs.insert(inputs.end(), files.begin(), files.end());
        const int refusal = RefuseOverwriting(common, inputs, {PlanFile});
        if (refusal != ExitDone) return refusal;
        const std::string reason = found.All.empty() ? Phrase("not written, since no plan was found")
                                                     : WritePlanFile(PlanFile, found);
        if (!reason.empty()) return Fail(PlanFile, reason);
    }
    if (!found.All.empty()) Kinds = std::move(found);
    return ExitDone;
}

int SharedPlan::Read(const std::string& file) {
    std::string complaint;
    Kinds = ReadPlanFile(file, complaint);
    return Finish(file, complaint);
}

void SharedPlan::GiveTo(ManyFiles& many) {
    // Without the plan they would read the files otherwise: from a file that isn't there they read none.
    std::string path = "-";
    try {
        const std::string text = PlanText(*Kinds);
        ForProcesses = std::make_unique<ScratchFile>();
        ForProcesses->Write(text.data(), text.size());
        path = Utf16ToUtf8(ForProcesses->Path());
    } catch (CFileException* failure) {
        Complain(Phrase("the plan can't be handed to the processes: {}",
                        Utf16ToUtf8(DescribeFileError(*failure))));
        failure->Delete();
    }
    many.GiveToProcesses(std::string(KindsOption) + "=" + path);
}
}  // namespace kelvarin::cli
