#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextLayout.h"
#include "contract/SidecarTool.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/plan/PlanGuess.h"
#include "host/sidecar/ColumnsFile.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
// What the command and its parts take beside the common options.
struct SidecarOptions {
    bool CheckOnly = false;
    bool GuessTime = false;
    bool Force = false;
    std::string Sidecar;               // of apply, and the first of diff
    std::string Other;                 // the second of diff
    std::vector<std::string> Targets;  // of apply
    CLI::App* Apply = nullptr;
    CLI::App* Diff = nullptr;
};

std::string QuotedValue(const std::u16string& value, std::size_t width) {
    return "\"" + OneLine(Utf16ToUtf8(value), width) + "\"";
}

// --- Checking one.

void WriteCheckJson(const std::string& file, const SidecarCheck& check) {
    Json fields = Json::object();
    for (const SidecarField& field : check.Fields) fields[field.Element] = Utf16ToUtf8(field.Value);
    WriteDocument(std::cout, {{"file", PrintableName(file)},
                              {"errors", check.Errors},
                              {"line", check.Line},
                              {"column", check.Column},
                              {"reason", check.Reason},
                              {"revision", Utf16ToUtf8(check.Revision)},
                              {"knownRevision", check.KnownRevision},
                              {"fields", fields}});
}

void WriteCheckText(const std::string& file, const SidecarCheck& check) {
    if (check.Errors < 0) return;
    const std::string revision = check.Revision.empty() ? "1" : Utf16ToUtf8(check.Revision);
    ReportStream(std::cout) << Styled(Style::Heading, file) << "\n  "
                            << (check.Errors == 0
                                    ? Phrase("revision {}, no error", revision)
                                    : Phrase("revision {}, {} errors: not used", revision, check.Errors))
                            << "\n";
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    constexpr std::size_t ValueWidth = 100;
    for (const SidecarField& field : check.Fields)
        table.AddRow({field.Element, QuotedValue(field.Value, ValueWidth)});
    table.Write(std::cout, "    ");
}

int CheckFile(const ModuleLoader& module, bool json, const std::string& file) {
    const SidecarCheck check = sidecar::CheckSidecar(module, PathFromNative(file));
    (json ? WriteCheckJson : WriteCheckText)(file, check);
    return Finish(file, sidecar::ComplaintOf(check));
}

// --- Writing one.

// Empty, or why the file's sidecar stays as it is.
std::string WhyKept(const std::u16string& path, bool force) {
    if (force || !sidecar::HasSidecar(path)) return {};
    return Phrase("{} exists already; --force replaces it", Utf16ToUtf8(PathStripPath(path) + u".info"));
}

int WriteFile(const ModuleLoader& module, const CommonOptions& common, const SidecarOptions& options,
              const std::string& file) {
    const std::u16string path = PathFromNative(file);
    ReadingOptions wanted;
    wanted.NoGuess = !options.GuessTime;
    wanted.GuessTime = options.GuessTime;
    FileReading reading(module, file, common, wanted);
    const plan::Guess* const guess = reading.Guess();
    std::string reason = WhyKept(path, options.Force);
    if (reason.empty() && guess != nullptr) reason = guess->Failure;
    if (reason.empty() && reading.Automatic()->Copy() != nullptr) reason = plan::WhyNotSaved();
    if (reason.empty()) reason = sidecar::WriteSidecar(module, path);
    if (reason.empty() && guess != nullptr)
        reason = sidecar::SaveChoices(path, {guess->Columns, guess->Letters}, options.Force);
    if (common.Json) {
        Json document = {{"file", PrintableName(file)}, {"written", reason.empty()}};
        if (guess != nullptr) document["guess"] = GuessToJson(*guess);
        WriteDocument(std::cout, document);
    } else {
        if (reason.empty()) ReportStream(std::cout) << file << ".info\n";
        if (guess != nullptr) WriteGuessText(std::cout, *guess);
    }
    return Finish(file, reason);
}

// --- One for many files.

// Empty, or why the file doesn't get the sidecar. It is copied whole, so that what only people or other
// programs read in it stays.
std::string CopyBeside(const sidecar::SidecarFit& fit, const std::u16string& sidecar,
                       const std::u16string& path, bool force) {
    std::string reason = WhyKept(path, force);
    if (reason.empty()) reason = fit.WhyUnfit(path);
    if (!reason.empty()) return reason;
    std::ifstream file(PathForStream(sidecar), std::ios::binary);
    try {
        ReplaceFile(path + u".info", std::string(std::istreambuf_iterator<char>(file), {}));
    } catch (CFileException* error) {
        reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
    }
    return reason;
}

int ApplySidecar(const ModuleLoader& module, const CommonOptions& common, const SidecarOptions& options) {
    const std::u16string sidecar = PathFromNative(options.Sidecar);
    const sidecar::SidecarFit fit(module, sidecar);
    if (!fit.Complaint().empty()) return Finish(options.Sidecar, fit.Complaint());
    if (!fit.KnowsNames())
        ComplainAbout(options.Sidecar,
                      Phrase("its own file is not beside it, so that names of columns are not compared"));
    const ManyFiles many;
    std::vector<std::string> files = many.FilesOf(options.Targets);
    std::erase_if(files, [&](const std::string& file) { return PathFromNative(file) + u".info" == sidecar; });
    std::vector<std::string> inputs = files;
    inputs.push_back(options.Sidecar);
    if (const int refusal = RefuseOverwriting(common, inputs, SidecarsOf(files)); refusal != ExitDone)
        return refusal;
    const auto apply = [&](const std::string& file) {
        const std::string reason = CopyBeside(fit, sidecar, PathFromNative(file), options.Force);
        if (common.Json) {
            WriteDocument(std::cout,
                          {{"file", PrintableName(file)}, {"written", reason.empty()}, {"reason", reason}});
        } else if (reason.empty()) {
            ReportStream(std::cout) << file << ".info\n";
        }
        return Finish(file, reason);
    };
    return many.Run(files, Phrase("with the sidecar"), apply, ManyFiles::Sum::Always);
}

// --- Comparing two.

int DiffSidecars(const ModuleLoader& module, const SidecarOptions& options, bool json) {
    const SidecarCheck one = sidecar::CheckSidecar(module, PathFromNative(options.Sidecar));
    const SidecarCheck other = sidecar::CheckSidecar(module, PathFromNative(options.Other));
    int status = Finish(options.Sidecar, sidecar::ComplaintOf(one));
    status = WorseStatus(status, Finish(options.Other, sidecar::ComplaintOf(other)));
    if (status != ExitDone) return status;
    constexpr std::size_t ValueWidth = 60;
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Left});
    Json differences = Json::array();
    // The fields of both are those of one module, in one order.
    for (std::size_t i = 0; i < one.Fields.size(); ++i) {
        const auto& [element, value] = one.Fields[i];
        const std::u16string& otherValue = other.Fields[i].Value;
        if (value == otherValue) continue;
        table.AddRow({element, QuotedValue(value, ValueWidth), "->", QuotedValue(otherValue, ValueWidth)});
        differences.push_back(
            {{"field", element}, {"one", Utf16ToUtf8(value)}, {"other", Utf16ToUtf8(otherValue)}});
    }
    if (json) {
        WriteDocument(std::cout, {{"one", PrintableName(options.Sidecar)},
                                  {"other", PrintableName(options.Other)},
                                  {"equal", differences.empty()},
                                  {"differences", differences}});
    } else {
        table.Write(std::cout, "");
    }
    return differences.empty() ? ExitDone : ExitFindings;
}

// --- The command.

int RunSidecarCommand(const ModuleLoader& module, const CommonOptions& common,
                      const SidecarOptions& options) {
    if (options.Apply->parsed()) return ApplySidecar(module, common, options);
    if (options.Diff->parsed()) return DiffSidecars(module, options, common.Json);
    const std::vector<std::string> files = ManyFiles().FilesOf(common.Files);
    const int refusal =
        options.CheckOnly ? int{ExitDone} : RefuseOverwriting(common, files, SidecarsOf(files));
    if (refusal != ExitDone) return refusal;
    const std::string done = options.CheckOnly ? Phrase("checked") : Phrase("written");
    return ManyFiles().Run(common.Files, done, [&](const std::string& file) {
        return options.CheckOnly ? CheckFile(module, common.Json, file)
                                 : WriteFile(module, common, options, file);
    });
}

void AddParts(CLI::App& command, SidecarOptions& options) {
    options.Apply =
        command.add_subcommand("apply", Phrase("Copy a sidecar beside files with the same columns"));
    options.Diff = command.add_subcommand("diff", Phrase("Show where two sidecars differ"));
    for (CLI::App* const part : {options.Apply, options.Diff}) {
        part->add_option("SIDECAR", options.Sidecar, Phrase("The sidecar"))->required()->type_name("");
        part->fallthrough();
        part->group(Phrase("Commands"));
        part->get_help_ptr()->group(Phrase("Options"));
    }
    options.Apply->add_option("FILE", options.Targets, Phrase("Text files with separators"))
        ->required()
        ->type_name("");
    options.Diff->add_option("OTHER", options.Other, Phrase("The other sidecar"))->required()->type_name("");
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
    command.add_flag("--force", options->Force, Phrase("Replace sidecars that are there already"));
    command.add_flag("--guess-time", options->GuessTime,
                     Phrase("Find out how the file is built, and write that"));
    AddParts(command, *options);
    AddExamples(command, {"kelvarin-import sidecar --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv",
                          "kelvarin-import sidecar --guess-time data.csv",
                          "kelvarin-import sidecar --check data.csv.info",
                          "kelvarin-import sidecar apply data.csv.info '*.csv'",
                          "kelvarin-import sidecar diff data.csv.info other.csv.info"});
}
}  // namespace kelvarin::cli
