#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/GuessOptions.h"
#include "cli/SidecarApply.h"
#include "cli/SidecarDiff.h"
#include "cli/report/GuessReport.h"
#include "cli/report/Style.h"
#include "cli/report/TextTable.h"
#include "contract/SidecarTool.h"
#include "host/FileList.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

void WriteCheckJson(const std::string& file, const SidecarCheck& check) {
    Json fields = Json::object();
    for (const SidecarField& field : check.Fields) fields[field.Element] = Utf16ToUtf8(field.Value);
    const Json document = {{"file", PrintableName(file)},
                           {"errors", check.Errors},
                           {"line", check.Line},
                           {"column", check.Column},
                           {"reason", check.Reason},
                           {"revision", Utf16ToUtf8(check.Revision)},
                           {"knownRevision", check.KnownRevision},
                           {"fields", fields}};
    std::cout << document.dump() << "\n";
}

void WriteCheckText(const std::string& file, const SidecarCheck& check) {
    if (check.Errors < 0) return;
    const std::string revision = check.Revision.empty() ? "1" : Utf16ToUtf8(check.Revision);
    std::cout << Styled(Style::Heading, PrintableName(file)) << "\n  "
              << (check.Errors == 0 ? Phrase("revision {}, no error", revision)
                                    : Phrase("revision {}, {} errors: not used", revision, check.Errors))
              << "\n";
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    constexpr std::size_t ValueWidth = 100;
    for (const SidecarField& field : check.Fields) {
        table.AddRow({field.Element, "\"" + OneLine(Utf16ToUtf8(field.Value), ValueWidth) + "\""});
    }
    table.Write(std::cout, "    ");
}

int CheckFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    const SidecarCheck check = sidecar::CheckSidecar(module, PathFromNative(file));
    if (options.Json) {
        WriteCheckJson(file, check);
    } else {
        WriteCheckText(file, check);
    }
    const std::string complaint = sidecar::ComplaintOf(check);
    if (complaint.empty()) return ExitDone;
    ComplainAbout(file, complaint);
    return ExitFileFailed;
}

// The settings in force replace a sidecar; guessed ones are written only where there is none.
int WriteFile(const ModuleLoader& module, const CommonOptions& options, const guess::GuessOptions& guessing,
              const std::string& file) {
    const std::u16string path = PathFromNative(file);
    const guess::GuessLayer guessed(module, path, guessing, options.Settings);
    const guess::TimeGuess* const guess = guessed.Guess();
    std::string reason;
    if (guess == nullptr) {
        reason = sidecar::WriteSidecar(module, path);
    } else {
        reason = guess->Failure.empty() ? sidecar::SaveSidecar(module, path) : guess->Failure;
    }
    const bool written = reason.empty();
    if (options.Json) {
        Json document = {{"file", PrintableName(file)}, {"written", written}};
        if (guess != nullptr) document["guess"] = GuessToJson(*guess);
        std::cout << document.dump() << "\n";
    } else {
        if (written) std::cout << PrintableName(file) << ".info\n";
        if (guess != nullptr) WriteGuessText(std::cout, *guess);
    }
    if (written) return ExitDone;
    ComplainAbout(file, reason);
    return ExitFileFailed;
}

// What the parts of the command take beside the common options.
struct SidecarOptions {
    bool CheckOnly = false;
    guess::GuessOptions Guessing;
    bool Force = false;
    std::string Sidecar;               // of apply, and the first of diff
    std::string Other;                 // the second of diff
    std::vector<std::string> Targets;  // of apply
    CLI::App* Apply = nullptr;
    CLI::App* Diff = nullptr;
};

int RunSidecarCommand(const ModuleLoader& module, const CommonOptions& common,
                      const SidecarOptions& options) {
    if (options.Apply->parsed())
        return ApplySidecar(module, options.Sidecar, options.Targets, options.Force, common.Json);
    if (options.Diff->parsed()) return DiffSidecars(module, options.Sidecar, options.Other, common.Json);
    int status = ExitDone;
    for (const std::string& file : ListFiles(common.Files, false).Files) {
        const int done = options.CheckOnly ? CheckFile(module, common, file)
                                           : WriteFile(module, common, options.Guessing, file);
        if (done != ExitDone) status = done;
    }
    return status;
}

void AddParts(CLI::App& command, SidecarOptions& options) {
    options.Apply =
        command.add_subcommand("apply", Phrase("Copy a sidecar beside files with the same columns"));
    options.Apply->add_option("SIDECAR", options.Sidecar, Phrase("The sidecar"))->required()->type_name("");
    options.Apply->add_option("FILE", options.Targets, Phrase("Text files with separators"))
        ->required()
        ->type_name("");
    options.Apply->add_flag("--force", options.Force, Phrase("Replace sidecars that are there already"));
    options.Diff = command.add_subcommand("diff", Phrase("Show where two sidecars differ"));
    options.Diff->add_option("SIDECAR", options.Sidecar, Phrase("The sidecar"))->required()->type_name("");
    options.Diff->add_option("OTHER", options.Other, Phrase("The other sidecar"))->required()->type_name("");
    for (CLI::App* const part : {options.Apply, options.Diff}) {
        part->fallthrough();
        part->group(Phrase("Commands"));
        part->get_help_ptr()->group(Phrase("Options"));
    }
    // The parts have files of their own.
    CLI::Option* const files = command.get_option("FILE");
    files->required(false);
    command.require_subcommand(0, 1);
    command.parse_complete_callback([&command, files] {
        if (files->count() == 0 && command.get_subcommands().empty()) throw CLI::RequiredError("FILE");
    });
}

}  // namespace

void AddSidecarCommand(CommandLine& line) {
    const auto options = std::make_shared<SidecarOptions>();
    CLI::App& command =
        line.Add("sidecar", Phrase("Write FILE.info from the settings in force, check, copy or compare some"),
                 [options](const ModuleLoader& module, const CommonOptions& common) {
                     return RunSidecarCommand(module, common, *options);
                 });
    command.add_flag("--check", options->CheckOnly, Phrase("FILE is a sidecar: say how it reads"));
    AddGuessOption(command, options->Guessing);
    AddParts(command, *options);
    command.footer(
        Phrase("Examples:\n"
               "  kelvarin-import sidecar --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv\n"
               "  kelvarin-import sidecar --guess-time data.csv\n"
               "  kelvarin-import sidecar --check data.csv.info\n"
               "  kelvarin-import sidecar apply data.csv.info '*.csv'\n"
               "  kelvarin-import sidecar diff data.csv.info other.csv.info"));
}

}  // namespace kelvarin::cli
