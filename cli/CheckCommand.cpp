#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/ProgressLine.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/CheckReport.h"
#include "cli/report/Options.h"
#include "host/SourceFiles.h"
#include "host/check/CheckRun.h"
#include "host/check/RejectsFile.h"
#include "host/guess/TimeAdvice.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

namespace {

struct CheckOptions {
    std::string Rejects;       // a file for the rejected rows; empty: none
    bool RejectCells = false;  // among them those with a refused cell
};

// Options that give the rows times, if times are read and none of them was.
std::string AdviceFor(const ModuleLoader& module, const std::u16string& path,
                      const check::CheckResult& result, const CImportFilter& filter) {
    const bool lostAll = result.Series && result.Series->Count() == 0 && result.Dropped.Count() != 0;
    if (!lostAll || result.Reading.IsInterval || result.Above.First != 0) return {};
    return RemedyText(guess::AdviseTimestamp(module, path, ReadingOf(filter)));
}

// Empty, or why the file could not be checked.
std::string WhyFailed(const std::u16string& path, const check::CheckResult& result) {
    if (!result.Failed) return {};
    const std::string reason = WhyUnreadable(path);
    if (!reason.empty()) return reason;
    const std::string failure = Utf16ToUtf8(result.Failure);
    if (result.Begun) return failure;
    if (result.Above.First != 0) {
        return failure + " " +
               Phrase("Lines {} to {} look like rows; name the table's start: {}", result.Above.First,
                      result.Above.Last, check::TableOptions(result));
    }
    return failure + " " +
           Phrase(
               "No table was found at line {}; name its line: --set AutoFormat=0 --set FirstLine=<line> "
               "--set ImportHeader=<0 or 1>",
               result.Reading.HeaderLine != 0 ? result.Reading.HeaderLine : result.Reading.FirstDataLine);
}

RejectsNote SaveRejects(const CheckOptions& options, const std::u16string& path,
                        const check::CheckResult& result, const check::LineSet& dropped,
                        const check::LineSet& refused) {
    RejectsNote note;
    if (options.Rejects.empty() || !result.Begun || result.Failed) return note;
    note.File = options.Rejects;
    const auto firstLine = static_cast<std::uint64_t>(result.Reading.FirstDataLine);
    note.Rows = check::CountRejects(dropped, refused);
    note.Failure = check::WriteRejects(path, PathFromNative(options.Rejects), firstLine, dropped, refused);
    return note;
}

int CheckFile(const ModuleLoader& module, const CommonOptions& common, const CheckOptions& options,
              const std::string& file) {
    const std::u16string path = PathFromNative(file);
    check::LineSet dropped, refused;
    check::WantedLines wanted;
    if (!options.Rejects.empty()) wanted.Dropped = &dropped;
    if (options.RejectCells) wanted.Refused = &refused;
    check::CheckRun run(module, path, wanted);
    check::CheckResult result;
    {
        ProgressLine progress(file);
        result = run.Run([&](std::uint32_t percent) { progress.Show(percent); });
    }
    const std::vector<check::Finding> findings =
        check::Judge(result, AdviceFor(module, path, result, run.Filter()));
    const RejectsNote rejects = SaveRejects(options, path, result, dropped, refused);
    if (common.Json) {
        WriteCheckJson(std::cout, file, result, findings, rejects);
    } else {
        WriteCheckText(std::cout, file, result, findings, rejects);
    }
    const std::string reason = WhyFailed(path, result);
    if (!reason.empty()) ComplainAbout(file, reason);
    if (!rejects.Failure.empty()) ComplainAbout(rejects.File, rejects.Failure);
    if (result.Interrupted) return ExitInterrupted;
    if (result.Failed || !rejects.Failure.empty()) return ExitFileFailed;
    return IsClean(result, findings) ? ExitDone : ExitFindings;
}

int CheckFiles(const ModuleLoader& module, const CommonOptions& common, const CheckOptions& options,
               const ManyFiles& many) {
    if (!options.Rejects.empty()) {
        const std::vector<std::string> files = many.FilesOf(common.Files);
        if (files.size() > 1) {
            Complain(Phrase("--rejects takes the rows of one file; check the files one by one"));
            return ExitWrongUsage;
        }
        if (check::IsSameFile(PathFromNative(files.front()), PathFromNative(options.Rejects))) {
            Complain(Phrase("--rejects would overwrite the file itself"));
            return ExitWrongUsage;
        }
    }
    return many.Run(common.Files, Phrase("checked"),
                    [&](const std::string& file) { return CheckFile(module, common, options, file); });
}

}  // namespace

void AddCheckCommand(CommandLine& line) {
    const auto options = std::make_shared<CheckOptions>();
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command =
        line.Add("check", Phrase("Say what an import would lose, and why; status 3 if anything"),
                 [options, many](const ModuleLoader& module, const CommonOptions& common) {
                     return CheckFiles(module, common, *options, *many);
                 });
    CLI::Option* const rejects =
        command
            .add_option(
                "--rejects", options->Rejects,
                Phrase("Write the dropped rows to a file of their own, to be mended and imported alone"))
            ->type_name("FILE");
    command
        .add_flag("--reject-cells", options->RejectCells,
                  Phrase("With --rejects: also the rows with a refused cell"))
        ->needs(rejects);
    many->AddOptions(command);
    AddExamples(command, {"kelvarin-import check --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv",
                          "kelvarin-import check --rejects rejected.csv data.csv"});
}

}  // namespace kelvarin::cli
