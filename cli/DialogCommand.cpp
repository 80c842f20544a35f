#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/DialogScript.h"
#include "cli/ExitStatus.h"
#include "cli/report/SettingsJson.h"
#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/SourceCheck.h"
#include "host/language/Phrase.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {

namespace {

// Prints what came of the dialog.
int Report(HostSession& session, const std::string& file, std::int64_t result) {
    const CCsvImportSettings& settings = *SettingsOf(session.Filter());
    const nlohmann::ordered_json document = {
        {"result", result}, {"settings", SettingsToJson(settings)}, {"columns", ColumnsToJson(settings)}};
    std::cout << document.dump() << "\n";
    if (result != 0) return ExitDone;
    ComplainAbout(file, WhyUnreadable(PathFromNative(file)));
    return ExitFileFailed;
}

int RunScript(const ModuleLoader& module, const std::string& file, std::istream& script) {
    HostSession session(module, PathFromNative(file), RunOptions());
    DialogScript driver(script, std::cout, session.Filter());
    SetDialogDriver(&driver);
    const std::int64_t result = session.Filter().ShowOptionDialog();
    SetDialogDriver(nullptr);
    if (driver.GetError().empty()) return Report(session, file, result);
    Complain(driver.GetError());
    return ExitWrongUsage;
}

int ShowDialog(const ModuleLoader& module, const std::string& file) {
    HostSession session(module, PathFromNative(file), RunOptions());
    return Report(session, file, session.Filter().ShowOptionDialog());
}

// `scriptPath` is empty, a file, or - for standard input.
int RunDialog(const ModuleLoader& module, const std::string& file, const std::string& scriptPath) {
    if (scriptPath.empty() && HasDisplay()) return ShowDialog(module, file);
    if (scriptPath.empty()) {
        Complain(
            Phrase("there is no display for the dialog here; drive it with --script FILE, or set values with "
                   "--set"));
        return ExitWrongUsage;
    }
    if (scriptPath == "-") return RunScript(module, file, std::cin);
    std::ifstream script(PathForStream(PathFromNative(scriptPath)));
    if (!script) {
        ComplainAbout(scriptPath, Phrase("the script can't be read"));
        return ExitWrongUsage;
    }
    return RunScript(module, file, script);
}

}  // namespace

void AddDialogCommand(CommandLine& line) {
    const auto script = std::make_shared<std::string>();
    CLI::App& command = line.Add("dialog", Phrase("The settings dialog of one file, driven by a script"),
                                 [script](const ModuleLoader& module, const CommonOptions& common) {
                                     return RunDialog(module, common.Files.front(), *script);
                                 });
    command.get_option("FILE")->expected(1);
    command.add_option("--script", *script, Phrase("Steps of the user, one a line; - for standard input"))
        ->type_name("FILE");
    command.footer(
        Phrase("Example:\n"
               "  printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - data.csv"));
}

}  // namespace kelvarin::cli
