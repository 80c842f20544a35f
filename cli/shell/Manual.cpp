#include "cli/shell/CommandList.h"

#include "host/language/Phrase.h"

namespace kelvarin::cli {
namespace {
// A text as roff reads it back: a backslash and a leading dot or quote would be its own.
std::string Roff(const std::string& text) {
    std::string escaped;
    bool atStart = true;
    for (const char c : text) {
        if (atStart && (c == '.' || c == '\'')) escaped += "\\&";
        atStart = c == '\n';
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

void WriteHeading(std::ostream& out, const std::string& text) {
    out << ".SH " << Roff(text) << "\n";
}

void WriteCommand(std::ostream& out, const ListedCommand& command) {
    out << ".SS " << Roff(command.Name) << "\n" << Roff(command.Description) << ".\n";
    for (const ListedOption& option : command.Options) {
        out << ".TP\n.B " << Roff(option.Name);
        if (!option.Value.empty()) out << " \\fI" << Roff(option.Value) << "\\fR";
        out << "\n" << Roff(option.Description) << ".\n";
    }
    if (!command.Examples.empty()) out << ".PP\n.nf\n" << Roff(command.Examples) << "\n.fi\n";
}
}  // namespace

void WriteManual(std::ostream& out, const std::string& version, const std::vector<ListedCommand>& commands) {
    out << ".TH KELVARIN\\-IMPORT 1 \"\" \"kelvarin-import " << version << "\"\n";
    WriteHeading(out, Phrase("NAME"));
    out << Roff("kelvarin-import - " + Phrase("turn measurement text files into signals")) << "\n";
    WriteHeading(out, Phrase("SYNOPSIS"));
    out << Roff("kelvarin-import [COMMAND] [OPTION]... FILE...") << "\n";
    WriteHeading(out, Phrase("DESCRIPTION"));
    out << Roff(Phrase(
               "Reads text files of loggers, test benches, meters and vehicles, finds out how they are "
               "built, and turns their columns into typed signals with units, every sample under a "
               "timestamp in nanoseconds. A file without a command is imported."))
        << "\n";
    WriteHeading(out, Phrase("COMMANDS"));
    for (const ListedCommand& command : commands) WriteCommand(out, command);
    WriteHeading(out, Phrase("EXIT STATUS"));
    const std::pair<const char*, std::string> states[] = {
        {"0", Phrase("every file was done")},
        {"1", Phrase("a file could not be read, imported or analysed; the others are done")},
        {"2", Phrase("the command line is wrong; nothing was done")},
        {"3", Phrase("a check or a comparison found something")},
        {"130", Phrase("ended by Ctrl-C")},
        {"141", Phrase("nobody reads the output any more")}};
    for (const auto& [status, meaning] : states)
        out << ".TP\n.B " << status << "\n" << Roff(meaning) << ".\n";
    WriteHeading(out, Phrase("ENVIRONMENT"));
    const std::pair<const char*, std::string> variables[] = {
        {"LC_ALL, LC_MESSAGES, LANG",
         Phrase("the language of texts and time formats, if --language doesn't say it")},
        {"TZ", Phrase("the zone of absolute times")},
        {"NO_COLOR", Phrase("if not empty: no colour on a terminal")},
        {"XDG_CONFIG_HOME", Phrase("the folder of the profile store, ~/.config without it")}};
    for (const auto& [name, meaning] : variables)
        out << ".TP\n.B " << Roff(name) << "\n" << Roff(meaning) << ".\n";
}
}  // namespace kelvarin::cli
