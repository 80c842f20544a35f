#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/DialogScript.h"
#include "cli/report/JsonReport.h"
#include "contract/SettingsView.h"
#include "host/HostSession.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
// What an OK was to store and could not is complained about. Returns ExitDone without any such thing.
int ReportUnsaved(const std::string& file, const CImportFilter& filter) {
    int status = ExitDone;
    const ISettingsView* const view = filter.Find<ISettingsView>();
    if (view != nullptr && !view->GetSidecarFailure().empty())
        status = Fail(file + ".info", view->GetSidecarFailure());
    const std::string failure = Utf16ToUtf8(GetProcessProfile()->WriteFailure());
    if (failure.empty()) return status;
    Complain(Phrase("the profile can't be written: {}", failure));
    return ExitFileFailed;
}

// The dialog of one file, with a script in the user's place unless it is null.
int ShowDialog(const ModuleLoader& module, const std::string& file, std::istream* script) {
    HostSession session(module, PathFromNative(file), RunOptions());
    std::optional<DialogScript> driver;
    if (script != nullptr) SetDialogDriver(&driver.emplace(*script, std::cout, session.Filter()));
    const std::int64_t result = session.Filter().ShowOptionDialog();
    SetDialogDriver(nullptr);
    if (driver && !driver->GetError().empty()) {
        Complain(driver->GetError());
        return ExitWrongUsage;
    }
    Json document = {{"result", result}};
    AddSettings(document, session.Filter());
    WriteDocument(std::cout, document);
    if (result == 0) return Fail(file, WhyUnreadable(session.Filter(), PathFromNative(file)));
    constexpr std::int64_t Ok = 1;
    return result == Ok ? ReportUnsaved(file, session.Filter()) : int{ExitDone};
}

// `scriptPath` is empty, a file, or - for standard input.
int RunDialog(const ModuleLoader& module, const CommonOptions& common, const std::string& scriptPath) {
    const std::string& file = common.Files.front();
    const int refusal = RefuseOverwriting({}, {file, scriptPath}, {file + ".info", common.ProfilePath});
    if (refusal != ExitDone) return refusal;
    if (scriptPath == "-") return ShowDialog(module, file, &std::cin);
    if (!scriptPath.empty()) {
        std::ifstream script(PathForStream(PathFromNative(scriptPath)));
        if (script) return ShowDialog(module, file, &script);
        ComplainAbout(scriptPath, Phrase("the script can't be read"));
    } else if (HasDisplay()) {
        return ShowDialog(module, file, nullptr);
    } else {
        Complain(
            Phrase("there is no display for the dialog here; drive it with --script FILE, or set values "
                   "with --set"));
    }
    return ExitWrongUsage;
}
}  // namespace

void AddDialogCommand(CommandLine& line) {
    const auto script = std::make_shared<std::string>();
    CLI::App& command = line.Add("dialog", Phrase("The settings dialog of one file, driven by a script"),
                                 [script](const ModuleLoader& module, const CommonOptions& common) {
                                     return RunDialog(module, common, *script);
                                 });
    command.get_option("FILE")->expected(1);
    command.add_option("--script", *script, Phrase("Steps of the user, one a line; - for standard input"))
        ->type_name("FILE");
    AddExamples(command, {"printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - data.csv"});
}
}  // namespace kelvarin::cli
