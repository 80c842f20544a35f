#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/ProgressLine.h"
#include "contract/TimeStamp.h"
#include "host/HostSession.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "host/store/SampleFile.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

std::string Printable(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

// Puts the settings of a run, KEY=VALUE each, in force; empty, or what is wrong with one.
std::string LayOver(SettingsLayer& layer, const std::vector<std::string>& options) {
    for (const std::string& option : options) {
        const std::size_t equals = option.find('=');
        if (equals == std::string::npos) return Phrase("'{}' is not of the form KEY=VALUE", option);
        const std::string complaint = layer.Set(option.substr(0, equals), option.substr(equals + 1));
        if (!complaint.empty()) return complaint;
    }
    return {};
}

// One sentence: where the file and a fresh import differ.
std::string InWords(const store::SampleCheck::Difference& difference) {
    std::string place;
    if (!difference.Signal.empty()) place += Phrase("signal '{}', ", difference.Signal);
    if (difference.Sample) place += Phrase("sample {}, ", *difference.Sample + 1);
    return place + Phrase("{}: the file has {}, the import gives {}", FillPhrase(difference.What, {}),
                          difference.Stored, difference.Imported);
}

void WriteJson(const std::string& archive, const std::string& source, const store::SampleCheck& check,
               const store::SampleCheck::Difference* difference) {
    Json document = {{"file", Printable(source)},
                     {"store", Printable(archive)},
                     {"equal", difference == nullptr},
                     {"samples", check.Compared()},
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

class Verification {
  public:
    Verification(const ModuleLoader& module, const CommonOptions& common)
        : Module(module), Common(common), ArchivePath(common.Files.front()) {}

    int Run() {
        std::string complaint;
        Archive = store::OpenSampleFile(ArchivePath, complaint);
        if (Archive == nullptr) return Fail(ArchivePath, complaint);
        int status = ExitDone;
        for (std::size_t i = 1; i < Common.Files.size(); ++i) {
            const int one = Verify(Common.Files[i]);
            // What could not be compared weighs more than what differs.
            if (one != ExitDone && status != ExitFileFailed) status = one;
            if (one == ExitInterrupted) return one;
        }
        return status;
    }

  private:
    int Verify(const std::string& source) {
        const std::u16string path = PathFromNative(source);
        const std::string name = Utf16ToUtf8(PathStripPath(path));
        std::string complaint;
        const auto check = Archive->FindDevice(name, Seen[name]++, complaint);
        if (check == nullptr) return Fail(ArchivePath, complaint);
        // What the user says on the command line is meant.
        SettingsLayer settings;
        if (Common.Settings.empty()) complaint = LayOver(settings, check->Origin().Settings);
        if (!complaint.empty()) return Fail(ArchivePath, complaint);
        return Compare(source, path, *check);
    }

    int Compare(const std::string& source, const std::u16string& path, store::SampleCheck& check) {
        RunResult result;
        const store::SampleCheck::Difference* difference = nullptr;
        {
            ProgressLine progress(source);
            RunOptions options;
            options.Cancel = &InterruptFlag();
            options.BaseTime = check.Origin().BaseTime;
            options.OnProgress = [&progress](std::uint32_t percent) { progress.Show(percent); };
            options.Sink = &check;
            HostSession session(Module, path, std::move(options));
            result = session.Run();
            if (result.Failed || session.Device() == nullptr)
                return Fail(source, Utf16ToUtf8(session.Messages().Groups().back().FirstText));
            if (!result.Interrupted) difference = check.Compare(*session.Device());
        }
        if (result.Interrupted) return ExitInterrupted;
        if (!check.Failure().empty()) return Fail(ArchivePath, check.Failure());
        if (Common.Json) {
            WriteJson(ArchivePath, source, check, difference);
        } else if (difference == nullptr) {
            std::cout << Phrase("{}: equal to a fresh import, {} samples compared", Printable(source),
                                check.Compared())
                      << "\n";
        } else {
            std::cout << Printable(source) + ": " + InWords(*difference) << "\n";
        }
        return difference == nullptr ? ExitDone : ExitFindings;
    }

    static int Fail(const std::string& file, const std::string& reason) {
        ComplainAbout(file, reason);
        return ExitFileFailed;
    }

    const ModuleLoader& Module;
    const CommonOptions& Common;
    const std::string ArchivePath;
    std::unique_ptr<store::SampleArchive> Archive;
    std::map<std::string, std::size_t> Seen;  // sources of a name so far
};

int VerifyFiles(const ModuleLoader& module, const CommonOptions& common) {
    if (common.Files.size() < 2) {
        Complain(Phrase("verify needs an HDF5 file and the text files that it was made from"));
        return ExitWrongUsage;
    }
    CatchInterrupt();
    return Verification(module, common).Run();
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
