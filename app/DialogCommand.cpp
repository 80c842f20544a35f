#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/DialogScript.h"
#include "app/ExitStatus.h"
#include "app/HostSession.h"
#include "app/SettingsJson.h"
#include "app/SourceCheck.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/Path.h"

namespace {

// Prints what came of the dialog.
int Report(HostSession& session, const std::string& file, std::int64_t result) {
    const CCsvImportSettings& settings = SettingsOf(session.Filter());
    const nlohmann::ordered_json document = {
        {"result", result}, {"settings", SettingsToJson(settings)}, {"columns", ColumnsToJson(settings)}};
    std::cout << document.dump() << "\n";
    if (result != 0) return ExitDone;
    ComplainAbout(file, WhyUnreadable(PathFromNative(file)));
    return ExitFileFailed;
}

int RunScript(const ModuleLoader& module, const std::string& file, std::istream& script) {
    HostSession session(module.Factory(), PathFromNative(file), RunOptions());
    DialogScript driver(script, std::cout, session.Filter());
    SetDialogDriver(&driver);
    const std::int64_t result = session.Filter().ShowOptionDialog();
    SetDialogDriver(nullptr);
    if (driver.GetError().empty()) return Report(session, file, result);
    Complain(driver.GetError());
    return ExitWrongUsage;
}

int ShowDialog(const ModuleLoader& module, const std::string& file) {
    HostSession session(module.Factory(), PathFromNative(file), RunOptions());
    return Report(session, file, session.Filter().ShowOptionDialog());
}

}  // namespace

int RunDialogCommand(const ModuleLoader& module, const Options& options) {
    if (options.Script.empty() && HasDisplay()) return ShowDialog(module, options.Files.front());
    if (options.Script.empty()) {
        Complain(
            "there is no display for the dialog here; drive it with --script FILE, or set values with --set");
        return ExitWrongUsage;
    }
    if (options.Script == "-") return RunScript(module, options.Files.front(), std::cin);
    std::ifstream script(PathForStream(PathFromNative(options.Script)));
    if (!script) {
        ComplainAbout(options.Script, "the script can't be read");
        return ExitWrongUsage;
    }
    return RunScript(module, options.Files.front(), script);
}
