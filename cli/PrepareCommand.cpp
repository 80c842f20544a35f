#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/ProgressLine.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/PrepareReport.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/plan/Preparation.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
constexpr std::string_view Ending = ".prepared.csv";

struct PrepareOptions {
    std::string Output;  // empty: beside each file, under its name and Ending
    bool Force = false;
};

std::string CopyOf(const std::string& file, const PrepareOptions& options) {
    return options.Output.empty() ? file + std::string(Ending) : options.Output;
}

// Empty, or why a copy may not take this place.
std::string WhyKept(const std::string& copy, const std::vector<std::string>& sources, bool force) {
    // The names of devices come from the files themselves.
    if (!FindOverwriting(sources, {copy}).Output.empty())
        return copy + ": " + Phrase("this file is read, and would be overwritten");
    if (force || !IdentityOf(PathFromNative(copy))) return {};
    return Phrase("{} exists already; --force replaces it", PrintableName(copy));
}

// Empty, or why there is no plan for the file.
std::string ReasonOf(const ImportFailure& failure) {
    if (!failure.IsTableMissing) return failure.Reason;
    return Phrase("{}. `kelvarin-import explain` tells how its lines are read", failure.Reason);
}

// Writes the copies of a file that has a plan. True if the user ended it.
bool WriteCopies(const PrepareOptions& options, const std::vector<std::string>& sources,
                 const plan::Preparation& preparation, PrepareReport& report) {
    if (preparation.Devices) report.DeviceColumn = preparation.Devices->Column + 1;
    std::vector<plan::PreparedCopy> copies =
        CopiesAt(preparation, CopyOf(report.File, options), std::string(Ending));
    for (const plan::PreparedCopy& copy : copies) {
        report.Reason = WhyKept(copy.Path, sources, options.Force);
        if (!report.Reason.empty()) return false;
    }
    ProgressLine progress(report.File);
    plan::CopyOptions wanted;
    wanted.Cancel = &InterruptFlag();
    wanted.OnProgress = [&](std::uint32_t percent) { progress.Show(percent); };
    plan::WriteCopies(preparation, copies, wanted);
    for (plan::PreparedCopy& copy : copies) {
        report.Reason = copy.Result.Failure;
        if (copy.Result.Interrupted || !report.Reason.empty()) return copy.Result.Interrupted;
        report.Copies.push_back(std::move(copy));
    }
    return false;
}

int PrepareFile(const CommonOptions& common, const PrepareOptions& options,
                const std::vector<std::string>& sources, const std::string& file) {
    const plan::Preparation preparation = plan::FindPreparation(PathFromNative(file));
    PrepareReport report;
    report.File = file;
    report.Reason = ReasonOf(preparation.Failure);
    bool isInterrupted = false;
    if (report.Reason.empty()) {
        report.Plan = &*preparation.Plan;
        isInterrupted = WriteCopies(options, sources, preparation, report);
    }
    if (common.Json) {
        WritePrepareJson(std::cout, report);
    } else {
        WritePrepareText(std::cout, report);
    }
    const int status = Finish(file, report.Reason);
    return isInterrupted ? int{ExitInterrupted} : status;
}

// The files to be done. Copies are not copied again, unless they are named one by one.
std::vector<std::string> FilesToPrepare(const CommonOptions& common, const ManyFiles& many) {
    std::vector<std::string> files = many.FilesOf(common.Files);
    std::erase_if(files, [&](const std::string& file) {
        return file.ends_with(Ending) &&
               std::find(common.Files.begin(), common.Files.end(), file) == common.Files.end();
    });
    return files;
}

int PrepareFiles(const CommonOptions& common, const PrepareOptions& options, const ManyFiles& many) {
    if (!common.Settings.empty()) {
        Complain(Phrase("prepare finds out by itself how a file is read; leave --set out"));
        return ExitWrongUsage;
    }
    const std::vector<std::string> files = FilesToPrepare(common, many);
    if (!options.Output.empty() && files.size() > 1) {
        Complain(Phrase("--output names the copy of one file; without it each file has its own"));
        return ExitWrongUsage;
    }
    std::vector<std::string> copies;
    for (const std::string& file : files) copies.push_back(CopyOf(file, options));
    if (const int refusal = RefuseOverwriting(common, files, copies); refusal != ExitDone) return refusal;
    const auto prepare = [&](const std::string& file) { return PrepareFile(common, options, files, file); };
    const bool isExpanded = files != common.Files;
    return many.Run(files, Phrase("prepared"), prepare,
                    isExpanded ? ManyFiles::Sum::Always : ManyFiles::Sum::IfMany);
}
}  // namespace

void AddPrepareCommand(CommandLine& line) {
    const auto options = std::make_shared<PrepareOptions>();
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command = line.Add(
        "prepare",
        Phrase("Write a clean copy that every import reads: one table, times in one column, rows in order"),
        [options, many](const ModuleLoader&, const CommonOptions& common) {
            return PrepareFiles(common, *options, *many);
        });
    command
        .add_option("-o,--output", options->Output,
                    Phrase("The copy (default: FILE.prepared.csv); for one file"))
        ->type_name("OUT");
    command.add_flag("--force", options->Force, Phrase("Replace copies that are there already"));
    many->AddOptions(command);
    AddExamples(command,
                {"kelvarin-import prepare data.csv", "kelvarin-import prepare data.csv -o clean.csv"});
}
}  // namespace kelvarin::cli
