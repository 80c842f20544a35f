#include <iostream>

#include "cli/Commands.h"
#include "cli/shell/Completion.h"
#include "cli/shell/Manual.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {

void AddShellCommands(CommandLine& line) {
    CLI::App& completion =
        line.AddTool("completion", Phrase("Print the script with which a shell completes"));
    completion
        .add_option_function<std::string>(
            "SHELL",
            [&line](const std::string& shell) {
                if (!WriteCompletion(std::cout, shell, ListCommands(line.Tree())))
                    RefuseOption("SHELL", Phrase("'{}' is not known; known are bash, zsh and fish", shell));
            },
            "bash, zsh, fish")
        ->required();
    completion.footer(Phrase(
        "Example:\n"
        "  kelvarin-import completion bash >~/.local/share/bash-completion/completions/kelvarin-import"));
    CLI::App& manual = line.AddTool("manual", Phrase("Print the manual page, for man -l"));
    manual.callback([&line] { WriteManual(std::cout, KELVARIN_VERSION, ListCommands(line.Tree())); });
    manual.footer(Phrase("Example:\n  kelvarin-import manual | man -l -"));
}

}  // namespace kelvarin::cli
