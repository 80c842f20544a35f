#include "app/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "app/ExitStatus.h"
#include "app/SettingsJson.h"
#include "app/WholeNumber.h"

namespace {

constexpr const char* ProgramName = "kelvarin-import";

// The options as CLI11 stores them, before they are checked.
struct RawOptions {
    std::vector<std::string> Settings;
    std::string Samples;
    std::string BaseTime;
    std::string Store;
    std::string Language;
};

void AddCommonOptions(CLI::App& command, RawOptions& raw, Options& options) {
    command.add_option("--profile", options.ProfilePath, "Profile store (default: the user's own)")
        ->type_name("FILE");
    command.add_option("--set", raw.Settings, "A setting for this run only; repeatable")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    command.add_flag("--json", options.Json, "One JSON document per file on standard output");
    command.add_option("--language", raw.Language, "Language of the module's texts: de")->type_name("CODE");
    command.add_option("FILE", options.Files, "Text files with separators")->required();
}

void AddImportOptions(CLI::App& command, RawOptions& raw) {
    command.add_option("--samples", raw.Samples, "List the first N samples of each signal, or all")
        ->type_name("N|all");
    command
        .add_option("--store", raw.Store,
                    "none: keep a summary of each signal (default); memory: keep every sample")
        ->type_name("none|memory");
    command.add_option("--base-time", raw.BaseTime, "Start of relative measurement time in nanoseconds")
        ->type_name("NS");
}

// Each check answers an empty text, or what is wrong and what is allowed.
std::string CheckSamples(const std::string& text, Options& options) {
    if (text.empty()) return {};
    std::size_t count = 0;
    if (text == "all") {
        options.Samples = AllSamples;
    } else if (ParseWhole(text, count)) {
        options.Samples = count;
    } else {
        return "--samples: '" + text + "' is neither a number of samples nor all";
    }
    return {};
}

std::string CheckStore(const std::string& text, Options& options) {
    options.KeepAll = text == "memory";
    if (text.empty() || text == "none" || text == "memory") return {};
    return "--store: '" + text + "' is not allowed; allowed are none and memory";
}

std::string CheckBaseTime(const std::string& text, Options& options) {
    if (text.empty()) return {};
    std::int64_t time = 0;
    if (!ParseWhole(text, time)) return "--base-time: '" + text + "' is no 64-bit number of nanoseconds";
    options.BaseTime = time;
    return {};
}

std::string CheckLanguage(const std::string& text) {
    if (text.empty() || text == "de") return {};
    return "--language: there are no texts for '" + text + "'; allowed is de";
}

std::string CheckSettings(const std::vector<std::string>& texts, Options& options) {
    for (const std::string& text : texts) {
        std::pair<std::u16string, ProfileOverlay::Value> setting;
        std::string complaint = ParseSettingOption(text, setting.first, setting.second);
        if (!complaint.empty()) return "--set: " + complaint;
        options.Settings.push_back(std::move(setting));
    }
    return {};
}

std::string CheckOptions(const RawOptions& raw, Options& options) {
    for (const std::string& complaint : {CheckSettings(raw.Settings, options),
                                         CheckSamples(raw.Samples, options), CheckStore(raw.Store, options),
                                         CheckBaseTime(raw.BaseTime, options), CheckLanguage(raw.Language)}) {
        if (!complaint.empty()) return complaint;
    }
    return {};
}

int Complain(const std::string& text) {
    std::cerr << ProgramName << ": " << text << "\n";
    return ExitWrongUsage;
}

// The names of the options of a command, for a complaint about another one.
std::string AllowedOptions(const CLI::App& command) {
    std::string names;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_lnames().empty()) continue;
        names += (names.empty() ? "--" : ", --") + option->get_lnames().front();
    }
    return names;
}

// A file as first argument means import, and so does an option of that command.
std::vector<std::string> CommandLineArguments(std::vector<std::string> arguments) {
    constexpr std::string_view Known[] = {"import", "analyze", "sidecar",  "dialog",
                                          "--help", "-h",      "--version"};
    if (!arguments.empty() &&
        std::find(std::begin(Known), std::end(Known), arguments.front()) == std::end(Known)) {
        arguments.insert(arguments.begin(), "import");
    }
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    return arguments;
}

}  // namespace

std::optional<int> ParseCommandLine(const std::vector<std::string>& arguments, Options& options) {
    CLI::App program("Turns measurement text files (*.csv, *.txt) into signals.", ProgramName);
    program.set_version_flag("--version", std::string(ProgramName) + " " KELVARIN_VERSION);
    program.require_subcommand(1);
    program.allow_windows_style_options(false);  // a path may begin with a slash
    RawOptions raw;
    CLI::App* const import = program.add_subcommand("import", "Run the import (the default for a file)");
    CLI::App* const analyze =
        program.add_subcommand("analyze", "What the analysis finds: format and columns");
    AddCommonOptions(*import, raw, options);
    AddImportOptions(*import, raw);
    AddCommonOptions(*analyze, raw, options);
    CLI::App* const sidecar =
        program.add_subcommand("sidecar", "Write FILE.info from the settings in force, or check one");
    AddCommonOptions(*sidecar, raw, options);
    CLI::App* const dialog =
        program.add_subcommand("dialog", "The settings dialog of one file, driven by a script");
    AddCommonOptions(*dialog, raw, options);
    dialog->get_option("FILE")->expected(1);
    dialog->add_option("--script", options.Script, "Steps of the user, one a line; - for standard input")
        ->type_name("FILE");
    sidecar->add_flag("--check", options.CheckOnly, "FILE is a sidecar: say how it reads");
    try {
        program.parse(CommandLineArguments(arguments));
    } catch (const CLI::Success& wish) {
        return program.exit(wish);
    } catch (const CLI::ExtrasError& error) {
        const CLI::App& command = *program.get_subcommands().front();
        return Complain(std::string(error.what()) + "; allowed are " + AllowedOptions(command));
    } catch (const CLI::ParseError& error) {
        return Complain(std::string(error.what()) + "; see --help");
    }
    const std::string complaint = CheckOptions(raw, options);
    if (!complaint.empty()) return Complain(complaint);
    options.What = analyze->parsed()   ? Command::Analyze
                   : sidecar->parsed() ? Command::Sidecar
                   : dialog->parsed()  ? Command::Dialog
                                       : Command::Import;
    return std::nullopt;
}
