#include <CLI/CLI.hpp>
#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/JoinedImport.h"
#include "cli/ProgressLine.h"
#include "cli/SharedPlan.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextLayout.h"
#include "host/HostSession.h"
#include "host/language/Phrase.h"
#include "host/store/SampleFile.h"
#include "platform/framework/GuardedProcess.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;
using Difference = store::SampleCheck::Difference;

namespace {
// Puts the settings of a run in force; empty, or what is wrong with one.
std::string LayOver(SettingsLayer& layer, const SettingList& settings) {
    for (const auto& [key, value] : settings) {
        const std::string complaint = layer.Set(key, value);
        if (!complaint.empty()) return complaint;
    }
    return {};
}

// One sentence: where the file and a fresh import differ.
std::string InWords(const Difference& difference) {
    std::string place;
    if (!difference.Signal.empty()) place += Phrase("signal '{}', ", difference.Signal);
    if (difference.Sample) place += Phrase("sample {}, ", *difference.Sample + 1);
    return place + Phrase("{}: the file has {}, the import gives {}", FillPhrase(difference.What, {}),
                          difference.Stored, difference.Imported);
}

Json ToJson(const Difference* difference) {
    if (difference == nullptr) return nullptr;
    return {{"signal", difference->Signal},
            {"sample", difference->Sample ? Json(*difference->Sample) : Json()},
            {"what", difference->What},
            {"stored", difference->Stored},
            {"imported", difference->Imported}};
}

// The comparison of one file of samples with imports of its sources.
class Verification {
  public:
    Verification(const ModuleLoader& module, const CommonOptions& common, ReadingOptions reading, bool joins)
        : Module(module),
          Common(common),
          Wanted(std::move(reading)),
          Joins(joins),
          ArchivePath(common.Files.front()) {}

    // The files are read alike, as the import of several has read them.
    int Run(SharedPlan& shared) {
        std::string complaint;
        Archive = store::OpenSampleFile(ArchivePath, complaint);
        if (Archive == nullptr) return Fail(ArchivePath, complaint);
        CommonOptions sources = Common;
        sources.Files.erase(sources.Files.begin());
        ManyFiles many;
        const int status = shared.Prepare(Module, sources, many, Wanted);
        if (status != ExitDone) return status;
        if (Joins) return VerifyJoined(sources);
        return many.Run(sources.Files, Phrase("compared"),
                        [this](const std::string& source) { return Verify(source); });
    }

  private:
    int Verify(const std::string& source) {
        const std::string name = Utf16ToUtf8(PathStripPath(PathFromNative(source)));
        const std::size_t index = Seen[name]++;
        std::string complaint;
        auto check = Archive->FindDevice(name, index, complaint);
        if (check == nullptr) return Fail(ArchivePath, complaint);
        const store::SampleOrigin origin = check->Origin();
        SettingsLayer settings;
        ReadingOptions wanted = Wanted;
        // What the user says on the command line is meant.
        if (Common.Settings.empty() && !origin.IsCopied) {
            complaint = LayOver(settings, origin.Settings);
            if (!complaint.empty()) return Fail(ArchivePath, complaint);
            wanted.NoGuess |= !origin.IsAutomatic;
            wanted.ColumnsOnly = true;
            if (wanted.FormatLetters.empty()) wanted.FormatLetters = origin.FormatLetters;
        }
        ProgressLine progress(source);
        const auto onProgress = [&progress](std::uint32_t percent) {
            ReportLife();
            progress.Show(percent);
        };
        FileReading reading(Module, source, Common, wanted, onProgress);
        if (!reading.WhyUnlike().empty()) return Fail(source, reading.WhyUnlike());
        Comparison comparison = Compare(source, *check, reading, onProgress);
        while (!comparison.Run.Interrupted && reading.TakesCopy()) {
            check = Archive->FindDevice(name, index, complaint);
            comparison = Compare(source, *check, reading, onProgress);
        }
        progress.Clear();
        return reading.WithComplaints(Report(source, *check, comparison));
    }

    // All files are one device, called like the first of them.
    int VerifyJoined(const CommonOptions& sources) {
        std::unique_ptr<store::SampleCheck> check;
        ImportOptions options;
        options.Reading = Wanted;
        options.OnProgress = [] { ReportLife(); };
        SettingsLayer settings;
        std::string complaint;
        JoinedImport joined(Module, sources, options, [&](const std::string& first) {
            check = Archive->FindDevice(Utf16ToUtf8(PathStripPath(PathFromNative(first))), 0, complaint);
            if (check == nullptr) return static_cast<store::DeviceSink*>(nullptr);
            const store::SampleOrigin& origin = check->Origin();
            options.BaseTime = origin.BaseTime;
            options.Reading.NoGuess |= !origin.IsAutomatic;
            if (!origin.IsAutomatic && Common.Settings.empty())
                complaint = LayOver(settings, origin.Settings);
            return static_cast<store::DeviceSink*>(check.get());
        });
        const int status = joined.Run(ManyFiles().FilesOf(sources.Files));
        if (check == nullptr || !complaint.empty())
            return complaint.empty() ? status : Fail(ArchivePath, complaint);
        Comparison comparison;
        comparison.HasDevice = joined.Device() != nullptr;
        if (!comparison.HasDevice) return status;
        comparison.First = check->Compare(*joined.Device());
        return WorseStatus(status, Report(sources.Files.front(), *check, comparison));
    }

    struct Comparison {
        RunResult Run;
        bool HasDevice = false;
        const Difference* First = nullptr;  // of the check; null if there is none
    };

    Comparison Compare(const std::string& source, store::SampleCheck& check, FileReading& reading,
                       const std::function<void(std::uint32_t)>& onProgress) {
        RunOptions options;
        options.Cancel = &InterruptFlag();
        options.BaseTime = check.Origin().BaseTime;
        options.OnProgress = onProgress;
        options.Sink = &check;
        options.Reading = reading.Automatic();
        HostSession session(Module, PathFromNative(source), std::move(options));
        Comparison comparison{session.Run(), session.Device() != nullptr, nullptr};
        if (!comparison.Run.Failed && !comparison.Run.Interrupted && comparison.HasDevice)
            comparison.First = check.Compare(*session.Device());
        return comparison;
    }

    int Report(const std::string& source, const store::SampleCheck& check,
               const Comparison& comparison) const {
        if (comparison.Run.Interrupted) return ExitInterrupted;
        if (comparison.Run.Failed || !comparison.HasDevice) return Fail(source, comparison.Run.Failure);
        if (!check.Failure().empty()) return Fail(ArchivePath, check.Failure());
        const Difference* const difference = comparison.First;
        if (Common.Json) {
            WriteDocument(std::cout, {{"file", PrintableName(source)},
                                      {"store", PrintableName(ArchivePath)},
                                      {"equal", difference == nullptr},
                                      {"samples", check.Compared()},
                                      {"difference", ToJson(difference)}});
        } else if (difference == nullptr) {
            ReportStream(std::cout) << Phrase("{}: equal to a fresh import, {} samples compared", source,
                                              check.Compared())
                                    << "\n";
        } else {
            ReportStream(std::cout) << source << ": " << InWords(*difference) << "\n";
        }
        return difference == nullptr ? ExitDone : ExitFindings;
    }

    const ModuleLoader& Module;
    const CommonOptions& Common;
    ReadingOptions Wanted;
    const bool Joins;  // the files were imported as one device
    const std::string ArchivePath;
    std::unique_ptr<store::SampleArchive> Archive;
    std::map<std::string, std::size_t> Seen;  // sources of a name so far
};

// As Verification::Run, where what the library makes of a damaged file can do no harm.
int VerifyGuarded(const ModuleLoader& module, const CommonOptions& common, const ReadingOptions& reading,
                  SharedPlan& shared, bool joins, int patience) {
    CatchInterrupt();
    const GuardedResult result =
        RunGuarded([&] { return Verification(module, common, reading, joins).Run(shared); },
                   std::chrono::seconds(patience));
    const std::string& file = common.Files.front();
    switch (result.End) {
        case GuardedResult::Crashed:
            return Fail(file, Phrase("the file is damaged: reading it ended with signal {}", result.Status));
        case GuardedResult::Stalled:
            return Fail(file,
                        Phrase("the file is damaged: reading it took {} s of the processor and gave nothing; "
                               "--patience allows more",
                               patience));
        case GuardedResult::NotStarted:
            return Fail(file, result.Reason);
        default:
            return result.Status;
    }
}
}  // namespace

void AddVerifyCommand(CommandLine& line) {
    constexpr int UsualPatience = 60;
    const auto patience = std::make_shared<int>(UsualPatience);
    const auto reading = std::make_shared<ReadingOptions>();
    const auto shared = std::make_shared<SharedPlan>();
    const auto joins = std::make_shared<bool>(false);
    CLI::App& command = line.Add(
        "verify", Phrase("Compare an HDF5 file with a fresh import of its text files"),
        [patience, reading, shared, joins](const ModuleLoader& module, const CommonOptions& common) -> int {
            if (common.Files.size() > 1)
                return VerifyGuarded(module, common, *reading, *shared, *joins, *patience);
            Complain(Phrase("verify needs an HDF5 file and the text files that it was made from"));
            return ExitWrongUsage;
        });
    command
        .add_option("--patience", *patience,
                    Phrase("Processor time without progress after which the file is damaged (default: 60)"))
        ->type_name("SECONDS")
        ->check(CLI::Range(1, 86'400));
    command.add_flag("--join", *joins, Phrase("The files were imported with --join"));
    AddReadingOptions(command, *reading);
    shared->AddOption(command);
    AddExamples(command, {"kelvarin-import verify data.h5 data.csv"},
                Phrase("The settings are those that the file was written with, unless --set is given."));
}
}  // namespace kelvarin::cli
