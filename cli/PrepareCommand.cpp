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

// Empty, or why there is no plan for the file. Raises CFileException.
std::string WhyUnplanned(const std::u16string& path, const std::optional<plan::ReadingPlan>& plan) {
    if (!plan) {
        const std::string reason = WhyUnreadable(path);
        if (!reason.empty()) return reason;
        return Phrase(
            "no table was found: no lines look like rows of values. `kelvarin-import explain` tells how its "
            "lines are read");
    }
    const bool isCounted = plan->Times && plan->Times->Recipe.Kind == plan::TimeKind::Interval;
    if (plan->Times && (!isCounted || plan->Times->IsUnitNamed)) return {};
    return Phrase(
        "no times were found: no column holds any, and no line above the table names the interval of its "
        "rows. Add such a line, as in \"Interval: 0.5 s\", or a column of times");
}

plan::CopyResult CopyWithProgress(const std::string& file, const plan::ReadingPlan& plan,
                                  const std::string& copy) {
    ProgressLine progress(file);
    plan::CopyOptions wanted;
    wanted.Layout = plan::CopyLayout::ForPeople;
    wanted.Cancel = &InterruptFlag();
    wanted.OnProgress = [&](std::uint32_t percent) { progress.Show(percent); };
    return WriteCleanCopy(PathFromNative(file), plan, PathFromNative(copy), wanted);
}

// Empty, or why a copy may not take this place.
std::string WhyKept(const std::string& copy, bool force) {
    if (force || !IdentityOf(PathFromNative(copy))) return {};
    return Phrase("{} exists already; --force replaces it", PrintableName(copy));
}

int PrepareFile(const CommonOptions& common, const PrepareOptions& options, const std::string& file) {
    const std::string copy = CopyOf(file, options);
    PrepareReport report{file, {}, WhyKept(copy, options.Force), nullptr, {}};
    std::optional<plan::ReadingPlan> plan;
    try {
        if (report.Reason.empty()) {
            plan = plan::FindPlan(PathFromNative(file));
            report.Reason = WhyUnplanned(PathFromNative(file), plan);
        }
    } catch (CFileException* error) {
        report.Reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
    }
    if (report.Reason.empty()) {
        report.Plan = &*plan;
        report.Result = CopyWithProgress(file, *plan, copy);
        report.Reason = report.Result.Failure;
        if (report.Reason.empty() && !report.Result.Interrupted) report.Copy = copy;
    }
    if (common.Json) {
        WritePrepareJson(std::cout, report);
    } else {
        WritePrepareText(std::cout, report);
    }
    const int status = Finish(file, report.Reason);
    return report.Result.Interrupted ? int{ExitInterrupted} : status;
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
    const auto prepare = [&](const std::string& file) { return PrepareFile(common, options, file); };
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
