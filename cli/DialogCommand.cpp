#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/DialogFront.h"
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

// The dialog of one file, worked by a driver; null where the system shows it. Returns the dialog's result.
std::int64_t WorkDialog(HostSession& session, DialogDriver* driver) {
    SetDialogDriver(driver);
    const std::int64_t result = session.Filter().ShowOptionDialog();
    SetDialogDriver(nullptr);
    return result;
}

// What became of the settings. Returns the program's status.
int ReportResult(const std::string& file, const HostSession& session, std::int64_t result) {
    Json document = {{"result", result}};
    AddSettings(document, session.Filter());
    WriteDocument(std::cout, document);
    if (result == 0) return Fail(file, WhyUnreadable(session.Filter(), PathFromNative(file)));
    constexpr std::int64_t Ok = 1;
    return result == Ok ? ReportUnsaved(file, session.Filter()) : int{ExitDone};
}

// The dialog with a script in the user's place.
int RunScript(const std::string& file, HostSession& session, std::istream& steps) {
    DialogScript script(steps, std::cout, session.Filter());
    const std::int64_t result = WorkDialog(session, &script);
    if (script.GetError().empty()) return ReportResult(file, session, result);
    Complain(script.GetError());
    return ExitWrongUsage;
}

// The dialog with the user himself, where there is a display.
int ShowDialog(const std::string& file, HostSession& session) {
    DialogFront front;
    if (HasDisplay()) return ReportResult(file, session, WorkDialog(session, nullptr));
    if (front.Open()) return ReportResult(file, session, WorkDialog(session, &front.Driver()));
    Complain(
        Phrase("there is no display for the dialog here; drive it with --script FILE, or set values "
               "with --set"));
    return ExitWrongUsage;
}

// `scriptPath` is empty, a file, or - for standard input.
int RunDialog(const ModuleLoader& module, const CommonOptions& common, const std::string& scriptPath) {
    const std::string& file = common.Files.front();
    const int refusal = RefuseOverwriting({}, {file, scriptPath}, {file + ".info", common.ProfilePath});
    if (refusal != ExitDone) return refusal;
    HostSession session(module, PathFromNative(file), RunOptions());
    if (scriptPath.empty()) return ShowDialog(file, session);
    if (scriptPath == "-") return RunScript(file, session, std::cin);
    std::ifstream script(PathForStream(PathFromNative(scriptPath)));
    if (script) return RunScript(file, session, script);
    ComplainAbout(scriptPath, Phrase("the script can't be read"));
    return ExitWrongUsage;
}
}  // namespace

void AddDialogCommand(CommandLine& line) {
    const auto script = std::make_shared<std::string>();
    CLI::App& command =
        line.Add("dialog", Phrase("The settings dialog of one file, on a display or driven by a script"),
                 [script](const ModuleLoader& module, const CommonOptions& common) {
                     return RunDialog(module, common, *script);
                 });
    command.get_option("FILE")->expected(1);
    command.add_option("--script", *script, Phrase("Steps of the user, one a line; - for standard input"))
        ->type_name("FILE");
    AddExamples(command, {"printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - data.csv"});
}
}  // namespace kelvarin::cli
