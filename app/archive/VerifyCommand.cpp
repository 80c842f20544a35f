#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/HostSession.h"
#include "app/ProgressLine.h"
#include "app/SettingsJson.h"
#include "app/archive/SampleFile.h"
#include "app/language/Phrase.h"
#include "host/TimeStamp.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

using Json = nlohmann::ordered_json;

namespace {

std::string Printable(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

// Lays the settings of a run over the profile for as long as it lives.
class SettingsOfRun {
  public:
    explicit SettingsOfRun(const std::vector<std::string>& options) : Before(GetProcessProfile()) {
        auto layer = std::make_shared<ProfileOverlay>(Before);
        for (const std::string& option : options) {
            std::u16string key;
            ProfileOverlay::Value value;
            Complaint = ParseSettingOption(option, key, value);
            if (!Complaint.empty()) return;
            layer->Set(SettingsSectionName(), key, std::move(value));
        }
        SetProcessProfile(std::move(layer));
    }
    SettingsOfRun(const SettingsOfRun&) = delete;
    SettingsOfRun& operator=(const SettingsOfRun&) = delete;
    ~SettingsOfRun() { SetProcessProfile(Before); }

    // Empty, or what is wrong with a setting.
    std::string Complaint;

  private:
    const std::shared_ptr<ProfileStore> Before;
};

// One sentence: where the file and a fresh import differ.
std::string InWords(const SampleCheck::Difference& difference) {
    std::string place;
    if (!difference.Signal.empty()) place += Phrase("signal '{}', ", difference.Signal);
    if (difference.Sample) place += Phrase("sample {}, ", *difference.Sample + 1);
    return place + Phrase("{}: the file has {}, the import gives {}", FillPhrase(difference.What, {}),
                          difference.Stored, difference.Imported);
}

void WriteJson(const std::string& archive, const std::string& source, const SampleCheck& check,
               const SampleCheck::Difference* difference) {
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
        Archive = OpenSampleFile(ArchivePath, complaint);
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
        const SettingsOfRun settings(Common.Settings.empty() ? check->Origin().Settings
                                                             : std::vector<std::string>());
        if (!settings.Complaint.empty()) return Fail(ArchivePath, settings.Complaint);
        return Compare(source, path, *check);
    }

    int Compare(const std::string& source, const std::u16string& path, SampleCheck& check) {
        RunResult result;
        const SampleCheck::Difference* difference = nullptr;
        {
            ProgressLine progress(source);
            RunOptions options;
            options.BaseTime = check.Origin().BaseTime;
            options.OnProgress = [&progress](std::uint32_t percent) { progress.Show(percent); };
            options.Sink = &check;
            HostSession session(Module.Factory(), path, std::move(options));
            result = session.Run([] { return std::uint64_t{0}; });
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
    std::unique_ptr<SampleArchive> Archive;
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
