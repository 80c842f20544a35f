#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/ImportOptions.h"
#include "cli/JoinedImport.h"
#include "cli/ProgressLine.h"
#include "cli/SharedPlan.h"
#include "cli/StoreFile.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Options.h"
#include "cli/report/TextReport.h"
#include "host/ImportFailure.h"
#include "host/Reading.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/plan/TimeAdvice.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {
RunOptions MakeRunOptions(const CommonOptions& common, const ImportOptions& options, ProgressLine& progress) {
    RunOptions run;
    run.BaseTime = options.BaseTime;
    run.KeepSamples = options.KeepSamples ? KeepAll : options.Samples.value_or(0);
    run.KeepMessages = common.Json ? options.Messages : 0;
    run.Cancel = &InterruptFlag();
    run.Threads = options.Threads;
    run.OnProgress = [&progress, &options](std::uint32_t percent) {
        if (options.OnProgress) options.OnProgress();
        progress.Show(percent);
    };
    return run;
}

std::string FailureText(const std::u16string& path, const RunResult& result, const HostSession& session) {
    const ImportFailure failure = WhyImportFailed(path, result, session);
    if (!failure.IsTableMissing) return failure.Reason;
    return Phrase("{}; `kelvarin-import explain FILE` says where one is", failure.Reason);
}

namespace {
void WriteText(const ModuleLoader& module, const std::string& file, const std::u16string& path,
               const RunResult& result, const HostSession& session, FileReading& reading) {
    if (!result.Begun) return;
    const plan::Guess* const guess = reading.Guess();
    if (CountSamples(session.Device()) == 0)
        ReportStream(std::cout) << Styled(Style::Warning,
                                          Phrase("{}: not one sample is stored, since {}; `kelvarin-import "
                                                 "explain FILE` says more",
                                                 file, WhyNothingIsStored(result, session.Device())))
                                << "\n";
    std::string advice;
    const bool readsTime = ReadingOf(session.Filter()).TimeSetting == TimeFromColumn;
    // A lone column of times gives no signal, and no message either.
    const bool hasReason = !session.Messages().IsEmpty();
    const bool isByUser = guess == nullptr || reading.Automatic()->HasChosenTimes();
    if (LostEveryRow(result, session.Device()) && readsTime && hasReason && isByUser)
        advice = RemedyText(plan::AdviseTimes(module, path, ReadingOf(session.Filter())));
    WriteFormatText(std::cout, file, session.Filter(), *reading.Automatic());
    if (guess != nullptr) WriteGuessText(std::cout, *guess);
    WriteRunText(std::cout, result, session, advice);
}

FileOutcome ImportFile(const ModuleLoader& module, const CommonOptions& common, const ImportOptions& options,
                       const std::string& file, StoreFile& store) {
    const std::u16string path = PathFromNative(file);
    ProgressLine progress(file);
    FileReading reading(module, file, common, options.Reading,
                        [&progress](std::uint32_t percent) { progress.Show(percent); });
    std::optional<HostSession> session;
    RunResult result;
    do {
        session.reset();
        RunOptions run = MakeRunOptions(common, options, progress);
        run.Sink = store.BeginRun();
        run.Reading = reading.Automatic();
        session.emplace(module, path, std::move(run));
        if (reading.WhyUnlike().empty()) result = session->Run();
    } while (!result.Interrupted && reading.TakesCopy());
    result.Interrupted |= reading.Automatic()->IsInterrupted();
    std::string reason = reading.WhyUnlike();
    if (reason.empty()) reason = FailureText(path, result, *session);
    if (reason.empty()) reason = reading.Automatic()->WhyUnread();
    const std::uint64_t samples = CountSamples(session->Device());
    const bool hasStored =
        store.EndRun(session->Device(), session->Origin(), reason.empty() && !result.Interrupted);
    progress.Clear();
    if (common.Json) {
        const CImportFilter* const filter = options.Reading.NoGuess ? nullptr : &session->Filter();
        WriteImportJson(std::cout, {file,
                                    result,
                                    session->Device(),
                                    {&session->Messages()},
                                    options.Samples,
                                    reading.Guess(),
                                    filter});
    } else {
        WriteText(module, file, path, result, *session, reading);
    }
    int status = WorseStatus(reading.WithComplaints(ExitDone), Finish(file, reason));
    if (result.Interrupted) return {ExitInterrupted, samples};
    if (samples == 0 && status == ExitDone) status = ExitFindings;
    return {hasStored ? status : ExitFileFailed, samples};
}

// As the function of all commands.
int RefuseOverwriting(const CommonOptions& common, const ImportOptions& options,
                      std::vector<std::string> files) {
    std::vector<std::string> sidecars = SidecarsOf(files);
    if (options.Reading.Save) {
        const int refusal = cli::RefuseOverwriting(common, files, sidecars);
        if (refusal != ExitDone) return refusal;
    }
    if (options.StorePath.empty()) return ExitDone;
    files.insert(files.end(), sidecars.begin(), sidecars.end());
    return cli::RefuseOverwriting(common, std::move(files), {options.StorePath});
}

int ImportJoined(const ModuleLoader& module, const CommonOptions& common, const ImportOptions& options,
                 const std::vector<std::string>& files, StoreFile& store) {
    JoinedImport joined(module, common, options, [&store](const std::string&) { return store.BeginRun(); });
    int status = joined.Run(files);
    const store::StoredDevice* const device = joined.Device();
    if (device == nullptr) return status;
    if (!store.EndRun(device, joined.FilesOrigin(), true)) status = WorseStatus(status, ExitFileFailed);
    if (common.Json) {
        WriteJoinedJson(std::cout, joined.Parts(), joined.Document());
    } else {
        WriteJoinedText(std::cout, joined.Parts(), joined.Document(), joined.FilesOrigin().IsRelative);
    }
    return CountSamples(device) == 0 ? WorseStatus(status, ExitFindings) : status;
}

int ImportFiles(const ModuleLoader& module, const CommonOptions& common, ImportOptions& options,
                ManyFiles& many, SharedPlan& shared) {
    options.Threads = many.Threads();
    if (!options.StorePath.empty() && many.HasProcesses()) {
        Complain(Phrase("--store FILE.h5 is written by one process; leave --jobs out"));
        return ExitWrongUsage;
    }
    if (options.Joins && many.HasProcesses()) {
        Complain(Phrase("--join reads its files in one process; leave --jobs out"));
        return ExitWrongUsage;
    }
    if (const int refusal = RefuseOverwriting(common, options, many.FilesOf(common.Files));
        refusal != ExitDone)
        return refusal;
    if (const int status = shared.Prepare(module, common, many, options.Reading); status != ExitDone)
        return status;
    StoreFile store(options.StorePath);
    if (!store.Open()) return ExitFileFailed;
    const auto importAll = [&] {
        if (options.Joins) return ImportJoined(module, common, options, many.FilesOf(common.Files), store);
        return many.Run(common.Files, Phrase("imported"), [&](const std::string& file) {
            return ImportFile(module, common, options, file, store);
        });
    };
    const int status = importAll();
    if (status == ExitInterrupted) {
        store.Abandon();
        return status;
    }
    return store.Finish() ? status : WorseStatus(status, ExitFileFailed);
}

// A number of something, or all of them; false for any other text.
bool ReadLimit(const std::string& text, std::size_t& limit) {
    if (text != "all") return ParseWhole(text, limit);
    limit = KeepAll;
    return true;
}

void SetSamples(const std::string& text, ImportOptions& options) {
    if (!ReadLimit(text, options.Samples.emplace()))
        RefuseOption("--samples", Phrase("'{}' is neither a number of samples nor all", text));
}

void SetMessages(const std::string& text, ImportOptions& options) {
    if (!ReadLimit(text, options.Messages))
        RefuseOption("--messages", Phrase("'{}' is neither a number of messages nor all", text));
}

void SetStore(const std::string& text, ImportOptions& options) {
    options.KeepSamples = text == "memory";
    if (text == "none" || text == "memory") return;
    options.StorePath = text;
    if (!text.ends_with(".h5"))
        RefuseOption("--store", Phrase("'{}' is not allowed; allowed are none, memory and FILE.h5", text));
    if (!store::HasSampleFiles()) RefuseOption("--store", Phrase("this build has no HDF5"));
}

void SetBaseTime(const std::string& text, ImportOptions& options) {
    if (!ParseWhole(text, options.BaseTime.emplace()))
        RefuseOption("--base-time", Phrase("'{}' is no 64-bit number of nanoseconds", text));
}
}  // namespace

void AddImportCommand(CommandLine& line) {
    const auto options = std::make_shared<ImportOptions>();
    const auto many = std::make_shared<ManyFiles>();
    const auto shared = std::make_shared<SharedPlan>();
    CLI::App& command =
        line.Add("import", Phrase("Run the import (the default for a file)"),
                 [options, many, shared](const ModuleLoader& module, const CommonOptions& common) {
                     return ImportFiles(module, common, *options, *many, *shared);
                 });
    const auto add = [&](const char* name, const char* values, const std::string& description,
                         void (*set)(const std::string&, ImportOptions&)) {
        const auto read = [set, options](const std::string& text) { set(text, *options); };
        command.add_option_function<std::string>(name, read, description)->type_name(values);
    };
    add("--samples", "N|all", Phrase("List the first N samples of each signal, or all"), SetSamples);
    add("--messages", "N|all", Phrase("List the first N messages in the JSON (default: 10000), or all"),
        SetMessages);
    add("--store", "none|memory|FILE.h5",
        Phrase("none: keep a summary of each signal (default); memory: keep every sample; FILE.h5: write "
               "every sample to an HDF5 file"),
        SetStore);
    add("--base-time", "NS", Phrase("Start of relative measurement time in nanoseconds"), SetBaseTime);
    many->AddThreadsOption(command);
    AddReadingOptions(command, options->Reading);
    AddSaveOption(command, options->Reading);
    command
        .add_flag("--join", options->Joins,
                  Phrase("Make one device of files that follow each other, with signals that run on"))
        ->excludes(command.get_option("--save"));
    shared->AddOption(command);
    many->AddOptions(command);
    AddExamples(command, {"kelvarin-import data.csv",
                          "kelvarin-import --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv",
                          "kelvarin-import import --json --samples all data.csv >data.json"});
}
}  // namespace kelvarin::cli
