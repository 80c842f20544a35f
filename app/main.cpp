// The embedded host: loads the import module and drives it as the host does.
#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/SettingsJson.h"
#include "host/SupportFunctions.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/support/ProfileOverlay.h"

namespace {

// The store that the module will read: the user's or a file, under the values of the command line.
void SetUpProfile(const Options& options) {
    std::shared_ptr<ProfileStore> store = options.ProfilePath.empty()
                                              ? OpenUserProfile(u"Brenholt", GetCommonProfileName())
                                              : OpenProfileFile(PathFromNative(options.ProfilePath));
    auto layer = std::make_shared<ProfileOverlay>(std::move(store));
    for (const auto& [key, value] : options.Settings) layer->Set(SettingsSectionName(), key, value);
    SetProcessProfile(std::move(layer));
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (const std::optional<int> status = ParseCommandLine(BeginProgram(argc, argv), options)) return *status;
    SetUpProfile(options);
    ModuleLoader module;
    const std::string reason = module.Load();
    if (!reason.empty()) {
        Complain(reason);
        return ExitFileFailed;
    }
    switch (options.What) {
        case Command::Analyze:
            return RunAnalyzeCommand(module, options);
        case Command::Sidecar:
            return RunSidecarCommand(module, options);
        case Command::Dialog:
            return RunDialogCommand(module, options);
        default:
            return RunImportCommand(module, options);
    }
}
