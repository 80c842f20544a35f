#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/ProgressLine.h"
#include "host/HostSession.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

namespace {

using Difference = store::SampleCheck::Difference;

int Fail(const std::string& file, const std::string& reason) {
    ComplainAbout(file, reason);
    return ExitFileFailed;
}

void WriteText(const std::string& source, std::uint64_t samples, const Difference* difference) {
    std::string text = PrintableName(source) + ": ";
    if (difference == nullptr) {
        text = Phrase("{}: equal to a fresh import, {} samples compared", PrintableName(source), samples);
    } else {
        if (!difference->Signal.empty()) text += Phrase("signal '{}', ", difference->Signal);
        if (difference->Sample) text += Phrase("sample {}, ", *difference->Sample + 1);
        text += Phrase("{}: the file has {}, the import gives {}", FillPhrase(difference->What, {}),
                       difference->Stored, difference->Imported);
    }
    std::cout << text << "\n";
}

void WriteJson(const std::string& archive, const std::string& source, std::uint64_t samples,
               const Difference* difference) {
    using Json = nlohmann::ordered_json;
    Json document = {{"file", PrintableName(source)},
                     {"store", PrintableName(archive)},
                     {"equal", difference == nullptr},
                     {"samples", samples},
                     {"difference", nullptr}};
    if (difference != nullptr) {
        document["difference"] = {{"signal", difference->Signal},
                                  {"sample", nullptr},
                                  {"what", difference->What},
                                  {"stored", difference->Stored},
                                  {"imported", difference->Imported}};
        if (difference->Sample) document["difference"]["sample"] = *difference->Sample;
    }
    std::cout << document.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}

// Imports a source file and compares its samples with those of a device.
int Compare(const ModuleLoader& module, const CommonOptions& common, const std::string& source,
            store::SampleCheck& check) {
    std::optional<ProgressLine> progress(source);
    RunOptions options;
    options.Cancel = &InterruptFlag();
    options.BaseTime = check.Origin().BaseTime;
    options.OnProgress = [&progress](std::uint32_t percent) { progress->Show(percent); };
    options.Sink = &check;
    HostSession session(module, PathFromNative(source), std::move(options));
    const RunResult result = session.Run();
    progress.reset();
    if (result.Failed || session.Device() == nullptr)
        return Fail(source, Utf16ToUtf8(session.Messages().Groups().back().FirstText));
    if (result.Interrupted) return ExitInterrupted;
    const Difference* const difference = check.Compare(*session.Device());
    const std::string& archive = common.Files.front();
    if (!check.Failure().empty()) return Fail(archive, check.Failure());
    if (common.Json) {
        WriteJson(archive, source, check.Compared(), difference);
    } else {
        WriteText(source, check.Compared(), difference);
    }
    return difference == nullptr ? ExitDone : ExitFindings;
}

int VerifyFiles(const ModuleLoader& module, const CommonOptions& common) {
    if (common.Files.size() < 2) {
        Complain(Phrase("verify needs an HDF5 file and the text files that it was made from"));
        return ExitWrongUsage;
    }
    CatchInterrupt();
    const std::string& file = common.Files.front();
    std::string complaint;
    const auto archive = store::OpenSampleFile(file, complaint);
    if (archive == nullptr) return Fail(file, complaint);
    std::vector<std::string> names;  // of the devices so far
    int status = ExitDone;
    for (std::size_t i = 1; i < common.Files.size(); ++i) {
        const std::string name = Utf16ToUtf8(PathStripPath(PathFromNative(common.Files[i])));
        const auto before = static_cast<std::size_t>(std::count(names.begin(), names.end(), name));
        names.push_back(name);
        const auto check = archive->FindDevice(name, before, complaint);
        SettingsLayer settings;
        // Settings of the command line go before those that the file was written with.
        if (check != nullptr && common.Settings.empty()) {
            for (const auto& [key, value] : check->Origin().Settings)
                if (complaint.empty()) complaint = settings.Set(key, value);
        }
        const int one =
            complaint.empty() ? Compare(module, common, common.Files[i], *check) : Fail(file, complaint);
        if (one == ExitInterrupted) return one;
        // What could not be compared weighs more than what differs.
        if (one != ExitDone && status != ExitFileFailed) status = one;
    }
    return status;
}

}  // namespace

void AddVerifyCommand(CommandLine& line) {
    CLI::App& command =
        line.Add("verify", Phrase("Compare an HDF5 file with a fresh import of its text files"), VerifyFiles);
    command.footer(
        Phrase("The settings are those that the file was written with, unless --set is given.\n"
               "Examples:\n"
               "  kelvarin-import verify data.h5 data.csv"));
}

}  // namespace kelvarin::cli
