// The embedded host: loads the import module and drives it as the host does.
#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/SettingsJson.h"
#include "app/language/Phrase.h"
#include "host/SupportFunctions.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/support/ProfileOverlay.h"

namespace {

// The store that the module will read: the user's or a file, under the values of the command line.
void SetUpProfile(const CommonOptions& options) {
    std::shared_ptr<ProfileStore> store = options.ProfilePath.empty()
                                              ? OpenUserProfile(u"Brenholt", GetCommonProfileName())
                                              : OpenProfileFile(PathFromNative(options.ProfilePath));
    auto layer = std::make_shared<ProfileOverlay>(std::move(store));
    for (const auto& [key, value] : options.Settings) layer->Set(SettingsSectionName(), key, value);
    SetProcessProfile(std::move(layer));
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = BeginProgram(argc, argv);
    SetPhraseLanguage(WantedLanguage(arguments));
    CommandLine line;
    AddImportCommand(line);
    AddAnalyzeCommand(line);
    AddExplainCommand(line);
    AddCheckCommand(line);
    AddSidecarCommand(line);
    AddVerifyCommand(line);
    AddDialogCommand(line);
    AddShellCommands(line);
    if (const std::optional<int> status = line.Parse(arguments)) return *status;
    SetUpProfile(line.Common());
    ModuleLoader module;
    const std::string reason = module.Load();
    if (!reason.empty()) {
        Complain(reason);
        return ExitFileFailed;
    }
    return line.Run(module);
}
