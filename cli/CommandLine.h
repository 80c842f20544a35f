// The command line: a list of commands, each with the common options and its own.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/SettingText.h"

namespace CLI {
class App;
}

namespace kelvarin::cli {
// What every command takes.
struct CommonOptions {
    std::vector<std::string> Files;       // as given, at least one
    std::string ProfilePath;              // empty: the user's own
    std::vector<ParsedSetting> Settings;  // for this run only
    bool Json = false;
};

// The language of the program's texts: the option's, else the user's. Known before the line is parsed, since
// the help texts too are in it.
std::string WantedLanguage(const std::vector<std::string>& arguments);

class CommandLine {
  public:
    // Does all files and returns the exit status; a file that fails doesn't stop the others.
    using Body = std::function<int(const ModuleLoader& module, const CommonOptions& common)>;

    CommandLine();
    ~CommandLine();

    // Adds a command that takes files and the common options; the caller adds its own ones.
    CLI::App& Add(const std::string& name, const std::string& description, Body body);

    // Adds a command that does its work while the line is parsed, without files or the module.
    CLI::App& AddTool(const std::string& name, const std::string& description);

    // All commands with their options.
    const CLI::App& Tree() const { return *Program; }

    // Reads the arguments. Nothing if a command is to be run, else the exit status: after help, version, a
    // tool's work, or one line on standard error about what is wrong.
    std::optional<int> Parse(const std::vector<std::string>& arguments);

    // Those of the command that was asked for.
    const CommonOptions& Common() const { return CommonValues; }

    // The name of the command that was asked for, and whether an option of its own was given.
    std::string CommandName() const;
    bool HasOption(const std::string& name) const;

    // Runs the command that was asked for.
    int Run(const ModuleLoader& module) const;

  private:
    void AddCommonOptions(CLI::App& command);
    std::vector<std::string> InOrder(std::vector<std::string> arguments) const;

    const std::unique_ptr<CLI::App> Program;
    CommonOptions CommonValues;
    std::map<const CLI::App*, Body> Bodies;
};

// Ends the parsing: the value of an option (with its dashes) can't be used. `reason` names what is allowed.
[[noreturn]] void RefuseOption(const std::string& option, const std::string& reason);

// ExitDone, or ExitWrongUsage after a complaint if an output of the command is one of its inputs, by whatever
// links. Called before anything is written. The profile, if it was named, is an input of every command.
int RefuseOverwriting(const CommonOptions& common, std::vector<std::string> inputs,
                      const std::vector<std::string>& outputs);

// Ends the help of a command with a note, or none, and examples: command lines.
void AddExamples(CLI::App& command, std::initializer_list<const char*> lines, const std::string& note = {});

// The commands; each adds itself, with its options.
void AddImportCommand(CommandLine& line);
void AddAnalyzeCommand(CommandLine& line);
void AddExplainCommand(CommandLine& line);
void AddCheckCommand(CommandLine& line);
void AddPrepareCommand(CommandLine& line);
void AddSidecarCommand(CommandLine& line);
void AddVerifyCommand(CommandLine& line);
void AddDialogCommand(CommandLine& line);

// The tools around the program: completion and manual.
void AddShellCommands(CommandLine& line);
}  // namespace kelvarin::cli
