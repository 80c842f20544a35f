#include <algorithm>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/GuessOptions.h"
#include "cli/ProgressLine.h"
#include "cli/StoreFile.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Options.h"
#include "cli/report/TextReport.h"
#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/SourceCheck.h"
#include "host/WholeNumber.h"
#include "host/guess/TimeAdvice.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

namespace {

// The command's own options.
struct ImportOptions {
    bool KeepAll = false;                  // keep every sample in memory
    std::optional<std::size_t> Samples;    // how many of each signal the report lists
    std::string StorePath;                 // of the file for every sample; empty: none
    std::optional<std::int64_t> BaseTime;  // start of relative time in nanoseconds; none: the fixed epoch
    guess::GuessOptions Guessing;
};

RunOptions MakeRunOptions(const CommonOptions& common, const ImportOptions& options, ProgressLine& progress) {
    RunOptions run;
    run.BaseTime = options.BaseTime;
    run.KeepSamples = options.KeepAll ? AllSamples : options.Samples.value_or(0);
    run.KeepAllMessages = common.Json;
    run.Cancel = &InterruptFlag();
    run.OnProgress = [&progress](std::uint32_t percent) { progress.Show(percent); };
    return run;
}

// True if rows were read and not one of them was stored.
bool LostEveryRow(const RunResult& result, const HostSession& session) {
    const store::StoredDevice* const device = session.Device();
    if (!result.Begun || result.Lines == 0 || device == nullptr) return false;
    return device->Signals.empty() || device->Signals.front()->Summary().Count == 0;
}

std::uint64_t CountSamples(const HostSession& session) {
    std::uint64_t count = 0;
    if (const store::StoredDevice* const device = session.Device()) {
        for (const auto& signal : device->Signals) count += signal->Summary().Count;
    }
    return count;
}

// Empty, or why the file counts as failed.
std::string WhyFailed(const std::u16string& path, const RunResult& result, HostSession& session) {
    if (!result.Failed && !LostEveryRow(result, session)) return {};
    std::string reason = WhyUnreadable(path);
    if (!result.Failed || !reason.empty()) return reason;
    reason = Utf16ToUtf8(session.Messages().Groups().back().FirstText);
    // The file can be read, so it is the place of the table that is wrong.
    const Reading format = ReadingOf(session.Filter());
    const int line = format.HeaderLine != 0 ? format.HeaderLine : format.FirstDataLine;
    return reason + " " +
           Phrase(
               "No table was found at line {}; name its line: --set AutoFormat=0 --set FirstLine=<line> "
               "--set "
               "ImportHeader=<0 or 1>",
               line);
}

void WriteText(const ModuleLoader& module, const std::string& file, const std::u16string& path,
               const RunResult& result, HostSession& session, const guess::TimeGuess* guess) {
    if (!result.Begun) return;
    std::string advice;
    const bool readsTime = ReadingOf(session.Filter()).TimeSetting == TimeFromColumn;
    const bool hasReason =
        !session.Messages().IsEmpty();  // a lone column of times gives no signal, and rightly so
    if (LostEveryRow(result, session) && readsTime && hasReason && guess == nullptr)
        advice = RemedyText(guess::AdviseTimestamp(module, path, ReadingOf(session.Filter())));
    WriteFormatText(std::cout, file, session.Filter());
    if (guess != nullptr) WriteGuessText(std::cout, *guess);
    WriteRunText(std::cout, result, session, advice);
}

int ImportFile(const ModuleLoader& module, const CommonOptions& common, const ImportOptions& options,
               const std::string& file, StoreFile& store, Tally& tally) {
    const std::u16string path = PathFromNative(file);
    RunResult result;
    std::string reason;
    bool hasStored = true;
    {
        ProgressLine progress(file);
        const guess::GuessLayer guessed(module, path, options.Guessing, common.Settings);
        RunOptions run = MakeRunOptions(common, options, progress);
        run.Sink = store.BeginRun();
        HostSession session(module, path, std::move(run));
        result = session.Run();
        reason = WhyFailed(path, result, session);
        tally.Samples += CountSamples(session);
        const bool isDone = reason.empty() && !result.Interrupted;
        hasStored = store.EndRun(session, isDone);
        if (common.Json) {
            WriteImportJson(std::cout, file, result, session, options.Samples, guessed.Guess());
        } else {
            WriteText(module, file, path, result, session, guessed.Guess());
        }
    }
    if (!reason.empty()) ComplainAbout(file, reason);
    if (result.Interrupted) return ExitInterrupted;
    return reason.empty() && hasStored ? ExitDone : ExitFileFailed;
}

int ImportFiles(const ModuleLoader& module, const CommonOptions& common, const ImportOptions& options,
                const ManyFiles& many) {
    if (!options.StorePath.empty() && many.HasCopies()) {
        Complain(Phrase("--store FILE.h5 is written by one process; leave --jobs out"));
        return ExitWrongUsage;
    }
    StoreFile store(options.StorePath);
    if (!store.Open()) return ExitFileFailed;
    const int status = many.Run(common, Phrase("imported"), [&](const std::string& file, Tally& tally) {
        return ImportFile(module, common, options, file, store, tally);
    });
    if (status == ExitInterrupted) {
        store.Abandon();
        return status;
    }
    return store.Finish() ? status : std::max<int>(status, ExitFileFailed);
}

void SetSamples(const std::string& text, ImportOptions& options) {
    std::size_t count = 0;
    if (text == "all") {
        options.Samples = AllSamples;
    } else if (ParseWhole(text, count)) {
        options.Samples = count;
    } else {
        RefuseOption("--samples", Phrase("'{}' is neither a number of samples nor all", text));
    }
}

void SetStore(const std::string& text, ImportOptions& options) {
    options.KeepAll = text == "memory";
    if (text == "none" || text == "memory") return;
    options.StorePath = text;
    if (!text.ends_with(".h5"))
        RefuseOption("--store", Phrase("'{}' is not allowed; allowed are none, memory and FILE.h5", text));
    if (!store::HasSampleFiles()) RefuseOption("--store", Phrase("this build has no HDF5"));
}

void SetBaseTime(const std::string& text, ImportOptions& options) {
    std::int64_t time = 0;
    if (!ParseWhole(text, time))
        RefuseOption("--base-time", Phrase("'{}' is no 64-bit number of nanoseconds", text));
    options.BaseTime = time;
}

}  // namespace

void AddImportCommand(CommandLine& line) {
    const auto options = std::make_shared<ImportOptions>();
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command = line.Add("import", Phrase("Run the import (the default for a file)"),
                                 [options, many](const ModuleLoader& module, const CommonOptions& common) {
                                     return ImportFiles(module, common, *options, *many);
                                 });
    command
        .add_option_function<std::string>(
            "--samples", [options](const std::string& text) { SetSamples(text, *options); },
            Phrase("List the first N samples of each signal, or all"))
        ->type_name("N|all");
    command
        .add_option_function<std::string>(
            "--store", [options](const std::string& text) { SetStore(text, *options); },
            Phrase("none: keep a summary of each signal (default); memory: keep every sample; FILE.h5: write "
                   "every "
                   "sample to an HDF5 file"))
        ->type_name("none|memory|FILE.h5");
    command
        .add_option_function<std::string>(
            "--base-time", [options](const std::string& text) { SetBaseTime(text, *options); },
            Phrase("Start of relative measurement time in nanoseconds"))
        ->type_name("NS");
    AddGuessOptions(command, options->Guessing);
    many->AddOptions(command);
    command.footer(
        Phrase("Examples:\n"
               "  kelvarin-import data.csv\n"
               "  kelvarin-import --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv\n"
               "  kelvarin-import import --json --samples all data.csv >data.json"));
}

}  // namespace kelvarin::cli
