#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/ProgressLine.h"
#include "cli/SharedPlan.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/CheckReport.h"
#include "cli/report/Options.h"
#include "host/ImportFailure.h"
#include "host/check/CheckRun.h"
#include "host/check/RejectsFile.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
struct CheckOptions {
    std::string RejectsFile;   // for the rejected rows; empty: none
    bool RejectCells = false;  // among them those with a refused cell
    std::size_t Threads = 1;   // that read a large file
    ReadingOptions Reading;
};

// Empty, or why the file could not be checked.
std::string WhyFailed(const check::CheckResult& result) {
    const ImportFailure failure = WhyCheckFailed(result);
    if (!failure.IsTableMissing) return failure.Reason;
    const check::RowsAbove& above = result.Above;
    if (above.Settings.empty())
        return Phrase("{}; `kelvarin-import explain FILE` says where one is", failure.Reason);
    return Phrase("{}; lines {} to {} look like rows, name the table's start: {}", failure.Reason,
                  above.First, above.Last, OptionsText(above.Settings));
}

check::CheckResult RunOnce(const ModuleLoader& module, const CheckOptions& options, const std::string& file,
                           FileReading& reading, ProgressLine& progress, check::LineSet& rejected) {
    check::CheckOptions wanted;
    if (!options.RejectsFile.empty()) wanted.Wanted.Dropped = &rejected;
    if (options.RejectCells) wanted.Wanted.Refused = &rejected;
    wanted.OnProgress = [&](std::uint32_t percent) { progress.Show(percent); };
    wanted.Cancel = &InterruptFlag();
    wanted.Threads = options.Threads;
    wanted.Reading = reading.Automatic();
    return check::RunCheck(module, PathFromNative(file), wanted);
}

// The line of the file at which the rows begin.
std::uint64_t FirstDataLine(const check::CheckResult& result, FileReading& reading) {
    const plan::AutomaticReading& automatic = *reading.Automatic();
    if (automatic.Copy() != nullptr) return automatic.Plan()->FirstLine;
    return static_cast<std::uint64_t>(result.Format.FirstDataLine);
}

int CheckFile(const ModuleLoader& module, const CommonOptions& common, const CheckOptions& options,
              const std::string& file) {
    const std::u16string path = PathFromNative(file);
    check::LineSet rejected;
    ProgressLine progress(file);
    FileReading reading(module, file, common, options.Reading,
                        [&progress](std::uint32_t percent) { progress.Show(percent); });
    CheckReport report{file, {}, {}, {}, 0, {}, nullptr};
    do {
        if (!reading.WhyUnlike().empty()) {
            report.Result.Failed = true;
            report.Result.WhyUnreadable = reading.WhyUnlike();
            break;
        }
        rejected = {};
        report.Result = RunOnce(module, options, file, reading, progress, rejected);
    } while (!report.Result.Interrupted && reading.TakesCopy());
    progress.Clear();
    report.Guess = reading.Guess();
    const check::CheckResult& result = report.Result;
    report.Findings = check::Judge(result);
    if (!options.RejectsFile.empty() && result.Begun && !result.Failed) {
        report.RejectsFile = options.RejectsFile;
        report.RejectedRows = rejected.Count();
        report.RejectsFailure = check::WriteRejects(path, PathFromNative(options.RejectsFile),
                                                    FirstDataLine(result, reading), rejected);
    }
    if (common.Json) {
        WriteCheckJson(std::cout, report);
    } else {
        WriteCheckText(std::cout, report);
    }
    const std::string reason = WhyFailed(result);
    if (!reason.empty()) ComplainAbout(file, reason);
    if (!report.RejectsFailure.empty()) ComplainAbout(options.RejectsFile, report.RejectsFailure);
    if (result.Interrupted || reading.Automatic()->IsInterrupted()) return ExitInterrupted;
    if (result.Failed || !report.RejectsFailure.empty()) return ExitFileFailed;
    return reading.WithComplaints(check::IsClean(result, report.Findings) ? ExitDone : ExitFindings);
}

int CheckFiles(const ModuleLoader& module, const CommonOptions& common, CheckOptions& options,
               ManyFiles& many, SharedPlan& shared) {
    if (!options.RejectsFile.empty()) {
        const std::vector<std::string> files = many.FilesOf(common.Files);
        if (files.size() > 1) {
            Complain(Phrase("--rejects takes the rows of one file; check the files one by one"));
            return ExitWrongUsage;
        }
        const std::string& file = files.front();
        const int refusal = RefuseOverwriting(common, {file, file + ".info"}, {options.RejectsFile});
        if (refusal != ExitDone) return refusal;
    }
    options.Threads = many.Threads();
    const int status = shared.Prepare(module, common, many, options.Reading);
    if (status != ExitDone) return status;
    return many.Run(common.Files, Phrase("checked"),
                    [&](const std::string& file) { return CheckFile(module, common, options, file); });
}
}  // namespace

void AddCheckCommand(CommandLine& line) {
    const auto options = std::make_shared<CheckOptions>();
    const auto many = std::make_shared<ManyFiles>();
    const auto shared = std::make_shared<SharedPlan>();
    CLI::App& command =
        line.Add("check", Phrase("Say what an import would lose, and why; status 3 if anything"),
                 [options, many, shared](const ModuleLoader& module, const CommonOptions& common) {
                     return CheckFiles(module, common, *options, *many, *shared);
                 });
    CLI::Option* const rejects =
        command
            .add_option(
                "--rejects", options->RejectsFile,
                Phrase("Write the dropped rows to a file of their own, to be mended and imported alone"))
            ->type_name("FILE");
    command
        .add_flag("--reject-cells", options->RejectCells,
                  Phrase("With --rejects: also the rows with a refused cell"))
        ->needs(rejects);
    many->AddThreadsOption(command);
    AddReadingOptions(command, options->Reading);
    shared->AddOption(command);
    many->AddOptions(command);
    AddExamples(command, {"kelvarin-import check --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv",
                          "kelvarin-import check --rejects rejected.csv data.csv"});
}
}  // namespace kelvarin::cli
