#include "cli/report/Options.h"

#include <algorithm>
#include <cstdio>

#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
namespace {
// "\342\200\256": what all shells that know $'...' read alike.
std::string OctalEscapes(std::string_view bytes) {
    std::string escapes;
    for (const char byte : bytes) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\%03o",
                      static_cast<unsigned>(static_cast<unsigned char>(byte)));
        escapes += escape;
    }
    return escapes;
}
}  // namespace

std::string ShellQuoted(const std::string& word) {
    const bool isPlain = !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '=' ||
               c == '.';
    });
    if (isPlain) return word;
    std::string quoted = "'";
    for (std::string_view rest = word; !rest.empty();) {
        std::size_t length = 1;
        DecodeUtf8Point(rest, length);
        const std::string_view character = rest.substr(0, length);
        rest.remove_prefix(length);
        if (character == "'") {
            quoted += "'\\''";
        } else if (MakeVisible(character) == character) {
            quoted += character;
        } else {
            quoted += "'$'" + OctalEscapes(character) + "''";
        }
    }
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
