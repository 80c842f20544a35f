#include "cli/report/Options.h"

#include <algorithm>

namespace kelvarin::cli {

std::string ShellQuoted(const std::string& word) {
    const bool isPlain = !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '=' ||
               c == '.';
    });
    if (isPlain) return word;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

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
