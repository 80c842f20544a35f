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
#include "host/plan/DeviceColumn.h"
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

// Empty, or why a copy may not take this place.
std::string WhyKept(const std::string& copy, const std::vector<std::string>& sources, bool force) {
    // The names of devices come from the files themselves.
    if (!FindOverwriting(sources, {copy}).Output.empty())
        return copy + ": " + Phrase("this file is read, and would be overwritten");
    if (force || !IdentityOf(PathFromNative(copy))) return {};
    return Phrase("{} exists already; --force replaces it", PrintableName(copy));
}

// A name for the copy of one device: its own before the ending. What not every system takes in a name becomes
// a low line.
std::string CopyOfDevice(const std::string& copy, const std::string& device) {
    std::string name = device;
    for (char& c : name) {
        const bool isAscii = static_cast<unsigned char>(c) < 0x80;
        const bool isAllowed =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
        if (isAscii && !isAllowed) c = '_';
    }
    const std::size_t folder = copy.find_last_of("/\\") + 1;  // npos + 1 is 0
    const std::size_t end = copy.ends_with(Ending) ? copy.size() - Ending.size() : copy.rfind('.');
    const std::size_t at = end == copy.npos || end <= folder ? copy.size() : end;
    return copy.substr(0, at) + "." + name + copy.substr(at);
}

// The copies to be made, still without their results: one for each device, or one.
std::vector<PreparedCopy> CopiesOf(const std::string& copy,
                                   const std::optional<plan::DeviceColumn>& devices) {
    if (!devices) return {{copy, {}, {}}};
    std::vector<PreparedCopy> copies;
    for (const std::u16string& device : devices->Devices) {
        const std::string name = Utf16ToUtf8(device);
        std::string path = CopyOfDevice(copy, name);
        const auto isTaken = [&](const PreparedCopy& other) { return other.Path == path; };
        while (std::any_of(copies.begin(), copies.end(), isTaken)) path = CopyOfDevice(path, "2");
        copies.push_back({path, name, {}});
    }
    return copies;
}

// The results of the copies up to the first that isn't made.
std::vector<plan::CopyResult> CopyWithProgress(const std::string& file, const plan::ReadingPlan& plan,
                                               const std::vector<PreparedCopy>& copies,
                                               const std::optional<plan::DeviceColumn>& devices) {
    ProgressLine progress(file);
    plan::CopyOptions wanted;
    wanted.Layout = plan::CopyLayout::ForPeople;
    wanted.Cancel = &InterruptFlag();
    wanted.OnProgress = [&](std::uint32_t percent) { progress.Show(percent); };
    const std::u16string source = PathFromNative(file);
    std::vector<plan::CopyResult> results;
    if (!devices) {
        results.push_back(WriteCleanCopy(source, plan, PathFromNative(copies.front().Path), wanted));
        return results;
    }
    std::vector<plan::DeviceCopy> targets;
    for (const PreparedCopy& copy : copies)
        targets.push_back({{devices->Column, Utf8ToUtf16(copy.Device)}, PathFromNative(copy.Path)});
    return WriteDeviceCopies(source, plan, targets, wanted);
}

// Writes the copies of a file that has a plan. True if the user ended it.
bool WriteCopies(const PrepareOptions& options, const std::vector<std::string>& sources,
                 const std::optional<plan::DeviceColumn>& devices, PrepareReport& report) {
    if (devices) report.DeviceColumn = devices->Column + 1;
    std::vector<PreparedCopy> copies = CopiesOf(CopyOf(report.File, options), devices);
    for (const PreparedCopy& copy : copies) {
        report.Reason = WhyKept(copy.Path, sources, options.Force);
        if (!report.Reason.empty()) return false;
    }
    std::vector<plan::CopyResult> results = CopyWithProgress(report.File, *report.Plan, copies, devices);
    for (std::size_t i = 0; i < results.size(); ++i) {
        report.Reason = results[i].Failure;
        if (results[i].Interrupted || !report.Reason.empty()) return results[i].Interrupted;
        copies[i].Result = std::move(results[i]);
        report.Copies.push_back(std::move(copies[i]));
    }
    return false;
}

int PrepareFile(const CommonOptions& common, const PrepareOptions& options,
                const std::vector<std::string>& sources, const std::string& file) {
    const std::u16string path = PathFromNative(file);
    PrepareReport report;
    report.File = file;
    std::optional<plan::ReadingPlan> plan;
    std::optional<plan::DeviceColumn> devices;
    try {
        plan = plan::FindPlan(path);
        report.Reason = WhyUnplanned(path, plan);
        const bool isOrdered =
            !plan || !plan->Times || plan->Times->Trial.Equal + plan->Times->Trial.Falling == 0;
        if (!isOrdered) devices = plan::FindDeviceColumn(path, *plan);
    } catch (CFileException* error) {
        report.Reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
    }
    bool isInterrupted = false;
    if (report.Reason.empty()) {
        report.Plan = &*plan;
        isInterrupted = WriteCopies(options, sources, devices, report);
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
