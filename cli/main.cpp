// The embedded host: loads the import module and drives it as the host does.
#include <new>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/language/Texts.h"
#include "cli/many/ManyFiles.h"
#include "contract/SupportFunctions.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

using namespace kelvarin;
using namespace kelvarin::cli;

namespace {
// Makes the user's profile or the file that was named the store that the module reads. ExitDone, or a failure
// that was complained about.
int OpenProfile(const CommandLine& line) {
    const std::string& path = line.Common().ProfilePath;
    if (path.empty()) {
        UseUserProfile();
    } else {
        SetProcessProfile(OpenProfileFile(PathFromNative(path)));
    }
    const ProfileState state = GetProcessProfile()->State();
    // A dialog makes the profile that it is given.
    const bool mayBeMissing = path.empty() || line.CommandName() == "dialog";
    if (state.Kind == ProfileState::Readable) return ExitDone;
    if (state.Kind == ProfileState::Missing && mayBeMissing) return ExitDone;
    // The process that started this one has said it.
    if (line.HasOption(ProcessOption)) return ExitDone;
    Complain(Phrase("no profile: {}", Utf16ToUtf8(state.Reason)));
    return state.Kind == ProfileState::Nowhere ? ExitDone : ExitFileFailed;
}

int RunProgram(const std::vector<std::string>& arguments) {
    CommandLine line;
    AddImportCommand(line);
    AddAnalyzeCommand(line);
    AddExplainCommand(line);
    AddCheckCommand(line);
    AddPrepareCommand(line);
    AddSidecarCommand(line);
    AddVerifyCommand(line);
    AddDialogCommand(line);
    AddShellCommands(line);
    if (const std::optional<int> status = line.Parse(arguments)) return *status;
    const int profile = OpenProfile(line);
    // A named one that isn't there has no settings; one that can't be read may have those that matter.
    const bool isNamed = !line.Common().ProfilePath.empty();
    if (isNamed && GetProcessProfile()->State().Kind == ProfileState::Unreadable) return profile;
    SettingsLayer settings;
    for (const ParsedSetting& setting : line.Common().Settings) settings.Set(setting);
    ModuleLoader module;
    const std::string reason = module.Load();
    if (reason.empty()) return WorseStatus(profile, line.Run(module));
    Complain(reason);
    return ExitFileFailed;
}
}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = BeginProgram(argc, argv);
    const std::string language = WantedLanguage(arguments);
    UseTexts(language);
    // Of a language that has no texts the module would speak its own.
    if (!language.empty() && !HasTexts(language)) SetPreferredLanguage("en");
    int status = ExitFileFailed;
    try {
        status = RunProgram(arguments);
    } catch (const std::bad_alloc&) {
        Complain(Phrase("not enough memory"));
    }
    return FinishOutput(status);
}
