#include "cli/shell/Completion.h"

namespace kelvarin::cli {

namespace {

// The values among which an option chooses, such as "none memory" of "none|memory"; empty if it takes any
// text. A word in capitals stands for a text of the user's.
std::string ChoicesOf(const ListedOption& option) {
    std::string choices;
    std::string word;
    for (const char c : option.Value + "|") {
        if (c != '|') {
            word += c;
            continue;
        }
        const bool isChoice =
            !word.empty() && word.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string::npos;
        if (isChoice) choices += (choices.empty() ? "" : " ") + word;
        word.clear();
    }
    return choices;
}

// A text inside single quotes of the shell.
std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// A description inside the brackets of zsh's _arguments.
std::string InBrackets(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string NamesOf(const std::vector<ListedCommand>& commands) {
    std::string names;
    for (const ListedCommand& command : commands) names += (names.empty() ? "" : " ") + command.Name;
    return names;
}

void WriteBash(std::ostream& out, const std::vector<ListedCommand>& commands) {
    out << "_kelvarin_import() {\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} "
           "command=${COMP_WORDS[1]}\n"
           "    local words=\n"
           "    case $command in\n";
    for (const ListedCommand& command : commands) {
        out << "    " << command.Name << ")\n        case $before in\n";
        std::string names;
        for (const ListedOption& option : command.Options) {
            names += (names.empty() ? "" : " ") + option.Name;
            const std::string choices = ChoicesOf(option);
            if (!choices.empty()) out << "        " << option.Name << ") words='" << choices << "' ;;\n";
        }
        out << "        *) [[ $word != -* ]] || words='" << names << "' ;;\n        esac ;;\n";
    }
    out << "    *) [[ COMP_CWORD -ne 1 ]] || words='" << NamesOf(commands) << "' ;;\n"
        << "    esac\n"
           "    COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
           "}\n"
           "complete -o default -F _kelvarin_import kelvarin-import\n";
}

void WriteZsh(std::ostream& out, const std::vector<ListedCommand>& commands) {
    out << "#compdef kelvarin-import\n"
           "_kelvarin_import() {\n"
           "    if (( CURRENT == 2 )); then\n"
           "        local -a commands=(\n";
    for (const ListedCommand& command : commands) {
        out << "            " << Quoted(command.Name + ":" + command.Description) << "\n";
    }
    out << "        )\n"
           "        _describe command commands\n"
           "        _files\n"
           "        return\n"
           "    fi\n"
           "    local command=$words[2]\n"
           "    shift words\n"
           "    (( CURRENT-- ))\n"
           "    case $command in\n";
    for (const ListedCommand& command : commands) {
        out << "    " << command.Name << ")\n        _arguments";
        for (const ListedOption& option : command.Options) {
            std::string entry = "*" + option.Name + "[" + InBrackets(option.Description) + "]";
            const std::string choices = ChoicesOf(option);
            if (!choices.empty()) {
                entry += ":" + InBrackets(option.Value) + ":(" + choices + ")";
            } else if (!option.Value.empty()) {
                entry += ":" + InBrackets(option.Value) + ":_files";
            }
            out << " \\\n            " << Quoted(entry);
        }
        out << " \\\n            '*:file:_files' ;;\n";
    }
    out << "    *) _files ;;\n"
           "    esac\n"
           "}\n"
           "compdef _kelvarin_import kelvarin-import\n";
}

void WriteFish(std::ostream& out, const std::vector<ListedCommand>& commands) {
    for (const ListedCommand& command : commands) {
        out << "complete -c kelvarin-import -n __fish_use_subcommand -a " << command.Name << " -d "
            << Quoted(command.Description) << "\n";
        for (const ListedOption& option : command.Options) {
            out << "complete -c kelvarin-import -n '__fish_seen_subcommand_from " << command.Name << "' -l "
                << option.Name.substr(2) << " -d " << Quoted(option.Description);
            const std::string choices = ChoicesOf(option);
            if (!option.Value.empty()) out << " -r";
            if (!choices.empty()) out << " -a '" << choices << "'";
            out << "\n";
        }
    }
}

}  // namespace

bool WriteCompletion(std::ostream& out, const std::string& shell,
                     const std::vector<ListedCommand>& commands) {
    if (shell == "bash") {
        WriteBash(out, commands);
    } else if (shell == "zsh") {
        WriteZsh(out, commands);
    } else if (shell == "fish") {
        WriteFish(out, commands);
    } else {
        return false;
    }
    return true;
}

}  // namespace kelvarin::cli
