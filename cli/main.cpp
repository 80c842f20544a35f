// The embedded host: loads the import module and drives it as the host does.
#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/language/Texts.h"
#include "contract/SupportFunctions.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"

using namespace kelvarin;
using namespace kelvarin::cli;

namespace {

// The store that the module will read: the user's or a file.
void OpenProfile(const CommonOptions& options) {
    SetProcessProfile(options.ProfilePath.empty() ? OpenUserProfile(u"Brenholt", GetCommonProfileName())
                                                  : OpenProfileFile(PathFromNative(options.ProfilePath)));
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = BeginProgram(argc, argv);
    UseTexts(WantedLanguage(arguments));
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
    OpenProfile(line.Common());
    SettingsLayer settings;
    for (const ParsedSetting& setting : line.Common().Settings) settings.Set(setting);
    ModuleLoader module;
    const std::string reason = module.Load();
    if (reason.empty()) return line.Run(module);
    Complain(reason);
    return ExitFileFailed;
}
