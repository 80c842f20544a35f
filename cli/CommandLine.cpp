#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/Complaints.h"
#include "contract/SupportFunctions.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/Language.h"

namespace kelvarin::cli {
namespace {
constexpr const char* ProgramName = "kelvarin-import";

// The names of the options of a command, for a complaint about another one.
std::string AllowedOptions(const CLI::App& command) {
    std::string names;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_lnames().empty() || option->get_group().empty()) continue;
        names += (names.empty() ? "--" : ", --") + option->get_lnames().front();
    }
    return names;
}

// CLI11 takes an argument in brackets for a list. With this after it, which no argument has, it doesn't.
constexpr char Mark = '\0';

void TakeMarksOff(CLI::App& command) {
    for (CLI::Option* option : command.get_options(nullptr)) {
        option->transform([](std::string value) {
            if (value.ends_with(Mark)) value.pop_back();
            return value;
        });
    }
    for (CLI::App* part : command.get_subcommands(nullptr)) TakeMarksOff(*part);
}

// What is wrong with the line, in the user's language as far as the parser says it often.
std::string ReasonOf(const CLI::ParseError& error) {
    const std::string text = error.what();
    if (text == "A subcommand is required") return Phrase("A subcommand is required");
    constexpr std::string_view Required = " is required";
    if (text.ends_with(Required))
        return Phrase("{} is required", std::string_view(text).substr(0, text.size() - Required.size()));
    constexpr std::string_view Unexpected = "The following argument was not expected: ";
    if (text.starts_with(Unexpected))
        return Phrase("The following argument was not expected: {}", text.substr(Unexpected.size()));
    return text;
}

// Refuses "--name=", for which the parser would take the next argument.
void RefuseEmptyValues(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument == "--") return;
        if (argument.starts_with("-") && argument.find('=') == argument.size() - 1)
            RefuseOption(argument.substr(0, argument.size() - 1), Phrase("needs a value"));
    }
}

// Refuses "--name ''".
void RefuseEmptyValues(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        const std::vector<std::string>& values = option->results();
        const bool takesValues = !option->get_positional() && option->get_items_expected_max() > 0;
        if (takesValues && std::find(values.begin(), values.end(), "") != values.end())
            RefuseOption(option->get_name(), Phrase("needs a value"));
    }
}
}  // namespace

std::string WantedLanguage(const std::vector<std::string>& arguments) {
    constexpr std::string_view Option = "--language";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == Option && i + 1 < arguments.size()) return arguments[i + 1];
        if (argument.starts_with(Option) && argument[Option.size()] == '=')
            return argument.substr(Option.size() + 1);
    }
    return UserLanguage();
}

void RefuseOption(const std::string& option, const std::string& reason) {
    throw CLI::ValidationError(option, reason);
}

int RefuseOverwriting(const CommonOptions& common, std::vector<std::string> inputs,
                      const std::vector<std::string>& outputs) {
    if (!common.ProfilePath.empty()) inputs.push_back(common.ProfilePath);
    const auto [output, input] = FindOverwriting(inputs, outputs);
    if (output.empty()) return ExitDone;
    ComplainAbout(output, input == output
                              ? Phrase("this file is read, and would be overwritten")
                              : Phrase("leads to {}, which is read and would be overwritten", input));
    return ExitWrongUsage;
}

void AddExamples(CLI::App& command, std::initializer_list<const char*> lines, const std::string& note) {
    std::string text = note.empty() ? "" : note + "\n";
    text += lines.size() == 1 ? Phrase("Example:") : Phrase("Examples:");
    for (const char* const line : lines) text += std::string("\n  ") + line;
    command.footer(text);
}

CommandLine::CommandLine()
    : Program(std::make_unique<CLI::App>(Phrase("Turns measurement text files (*.csv, *.txt) into signals."),
                                         ProgramName)) {
    Program->get_formatter()->label("Usage", Phrase("Usage"));
    Program->get_formatter()->label("REQUIRED", Phrase("required"));
    Program->get_formatter()->label("Positionals", Phrase("Files"));
    Program->option_defaults()->group(Phrase("Options"));
    Program->set_help_flag("-h,--help", Phrase("This help"));
    Program->get_help_ptr()->group(Phrase("Options"));
    Program->set_version_flag("--version", std::string(ProgramName) + " " KELVARIN_VERSION,
                              Phrase("The version"));
    Program->footer(
        Phrase("`kelvarin-import COMMAND --help` tells the options of a command. A file without a command is "
               "imported."));
    Program->require_subcommand(1);
    Program->allow_windows_style_options(false);  // a path may begin with a slash
}

CommandLine::~CommandLine() = default;

CLI::App& CommandLine::AddTool(const std::string& name, const std::string& description) {
    CLI::App& command = *Program->add_subcommand(name, description);
    command.group(Phrase("Commands"));
    command.get_help_ptr()->group(Phrase("Options"));
    return command;
}

CLI::App& CommandLine::Add(const std::string& name, const std::string& description, Body body) {
    CLI::App& command = AddTool(name, description);
    AddCommonOptions(command);
    Bodies.emplace(&command, std::move(body));
    return command;
}

void CommandLine::AddCommonOptions(CLI::App& command) {
    command
        .add_option("--profile", CommonValues.ProfilePath, Phrase("Profile store (default: the user's own)"))
        ->type_name("FILE");
    const auto addSettings = [this](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            const std::string complaint = ParseSetting(text, CommonValues.Settings.emplace_back());
            if (!complaint.empty()) RefuseOption("--set", complaint);
        }
    };
    command
        .add_option_function<std::vector<std::string>>("--set", addSettings,
                                                       Phrase("A setting for this run only; repeatable"))
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    command.add_flag("--json", CommonValues.Json, Phrase("One JSON document per file on standard output"));
    const auto checkLanguage = [](const std::string& code) {
        if (!HasTexts(code))
            RefuseOption("--language",
                         Phrase("there are no texts for '{}'; allowed are {}", code, TextLanguages(", ")));
        SetPreferredLanguage(code);
    };
    command
        .add_option_function<std::string>(
            "--language", checkLanguage,
            Phrase("Language of all texts and of the letters of a time format (default: the user's)"))
        ->type_name(TextLanguages("|"));
    command.add_option("FILE", CommonValues.Files, Phrase("Text files with separators"))
        ->required()
        ->type_name("");
}

// A file as first argument means import, and so does an option of that command.
std::vector<std::string> CommandLine::InOrder(std::vector<std::string> arguments) const {
    std::vector<std::string> known = {"--help", "-h", "--version"};
    for (const CLI::App* command : Program->get_subcommands(nullptr)) known.push_back(command->get_name());
    if (!arguments.empty() && std::find(known.begin(), known.end(), arguments.front()) == known.end()) {
        arguments.insert(arguments.begin(), "import");
    }
    for (std::string& argument : arguments) {
        if (argument.starts_with('[') && argument.ends_with(']')) argument += Mark;
    }
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    return arguments;
}

std::optional<int> CommandLine::Parse(const std::vector<std::string>& arguments) {
    TakeMarksOff(*Program);
    try {
        RefuseEmptyValues(arguments);
        Program->parse(InOrder(arguments));
        RefuseEmptyValues(*Program->get_subcommands().front());
        if (Bodies.contains(Program->get_subcommands().front())) return std::nullopt;
        return ExitDone;  // a tool, and it has run
    } catch (const CLI::Success& wish) {
        return Program->exit(wish);
    } catch (const CLI::ValidationError& error) {
        Complain(error.what());
    } catch (const CLI::ExtrasError& error) {
        const CLI::App& command = *Program->get_subcommands().front();
        Complain(Phrase("{}; allowed are {}", ReasonOf(error), AllowedOptions(command)));
    } catch (const CLI::ParseError& error) {
        Complain(Phrase("{}; see --help", ReasonOf(error)));
    }
    return ExitWrongUsage;
}

std::string CommandLine::CommandName() const {
    return Program->get_subcommands().front()->get_name();
}

bool CommandLine::HasOption(const std::string& name) const {
    const CLI::Option* const option = Program->get_subcommands().front()->get_option_no_throw(name);
    return option != nullptr && option->count() != 0;
}

int CommandLine::Run(const ModuleLoader& module) const {
    return Bodies.at(Program->get_subcommands().front())(module, CommonValues);
}
}  // namespace kelvarin::cli
