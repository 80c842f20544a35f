#include "cli/report/Options.h"

#include "platform/framework/ShellText.h"

namespace kelvarin::cli {
std::string OptionsText(const SettingList& settings) {
    std::string options;
    for (const auto& [key, value] : settings)
        options += (options.empty() ? "--set " : " --set ") + ShellQuoted(key + "=" + value);
    return options;
}

std::string RemedyText(const Remedy& remedy) {
    std::string options = OptionsText(remedy.Settings);
    if (remedy.Action == RemedyAction::ExtractRows) options = "--rejects FILE";
    if (remedy.Action == RemedyAction::ExtractRowsAndCells) options = "--rejects FILE --reject-cells";
    if (remedy.Action == RemedyAction::SwitchToEnglish) options = "--language en";
    if (options.empty() || remedy.Text.empty()) return remedy.Text + options;
    return remedy.Text + ": " + options;
}
}  // namespace kelvarin::cli
