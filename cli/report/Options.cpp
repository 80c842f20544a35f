#include "cli/report/Options.h"

#include "host/TypeNames.h"
#include "platform/framework/ShellText.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
std::string OptionsText(const SettingList& settings, const std::u16string& letters) {
    std::string options;
    for (const auto& [key, value] : settings)
        options += (options.empty() ? "--set " : " --set ") + ShellQuoted(key + "=" + value);
    if (!letters.empty()) options += " --format-letters " + ShellQuoted(Utf16ToUtf8(letters));
    return options;
}

std::string OptionsText(const std::vector<ColumnChoice>& columns) {
    std::string options;
    const auto add = [&options](const char* name, const std::string& value) {
        options += (options.empty() ? "" : " ") + std::string(name) + " " + ShellQuoted(value);
    };
    for (const ColumnChoice& choice : columns) {
        const std::string column = std::to_string(choice.Column + 1);
        if (!choice.Import) {
            add("--skip", column);
            continue;
        }
        const std::string type = TypeWord(choice.Type);
        if (!type.empty()) add("--type", column + "=" + type);
        if (!choice.Name.empty()) add("--name", column + "=" + Utf16ToUtf8(choice.Name));
        if (!choice.Unit.empty()) add("--unit", column + "=" + Utf16ToUtf8(choice.Unit));
    }
    return options;
}

std::string RemedyText(const Remedy& remedy) {
    std::string options = remedy.Columns.empty() ? OptionsText(remedy.Settings, remedy.FormatLetters)
                                                 : OptionsText(remedy.Columns);
    if (remedy.Action == RemedyAction::ExtractRows) options = "--rejects FILE";
    if (remedy.Action == RemedyAction::ExtractRowsAndCells) options = "--rejects FILE --reject-cells";
    if (remedy.Action == RemedyAction::CopyFile) options = "kelvarin-import prepare FILE";
    if (options.empty() || remedy.Text.empty()) return remedy.Text + options;
    return remedy.Text + ": " + options;
}
}  // namespace kelvarin::cli
