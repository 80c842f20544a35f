#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/CommandLine.h"
#include "cli/shell/CommandList.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {
namespace {
// The commands and options that the help names, in its order.
std::vector<ListedCommand> ListCommands(const CLI::App& program) {
    std::vector<ListedCommand> commands;
    for (const CLI::App* command : program.get_subcommands(nullptr)) {
        if (command->get_group().empty()) continue;
        ListedCommand listed{command->get_name(), command->get_description(), command->get_footer(), {}};
        for (const CLI::Option* option : command->get_options()) {
            if (option->get_lnames().empty() || option->get_group().empty()) continue;
            const bool isFlag = option->get_items_expected_max() == 0;
            listed.Options.push_back({"--" + option->get_lnames().front(),
                                      isFlag ? "" : option->get_type_name(), option->get_description()});
        }
        commands.push_back(std::move(listed));
    }
    return commands;
}
}  // namespace

void AddShellCommands(CommandLine& line) {
    CLI::App& completion =
        line.AddTool("completion", Phrase("Print the script with which a shell completes"));
    const auto write = [&line](const std::string& shell) {
        if (!WriteCompletion(std::cout, shell, ListCommands(line.Tree())))
            RefuseOption("SHELL", Phrase("'{}' is not known; known are bash, zsh and fish", shell));
    };
    completion.add_option_function<std::string>("SHELL", write, "bash, zsh, fish")->required();
    AddExamples(
        completion,
        {"kelvarin-import completion bash >~/.local/share/bash-completion/completions/kelvarin-import"});
    CLI::App& manual = line.AddTool("manual", Phrase("Print the manual page, for man -l"));
    manual.callback([&line] { WriteManual(std::cout, KELVARIN_VERSION, ListCommands(line.Tree())); });
    AddExamples(manual, {"kelvarin-import manual | man -l -"});
}
}  // namespace kelvarin::cli
