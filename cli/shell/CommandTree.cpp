#include "cli/shell/CommandTree.h"

namespace kelvarin::cli {

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

}  // namespace kelvarin::cli
