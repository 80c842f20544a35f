#include "cli/shell/CommandList.h"

namespace kelvarin::cli {

namespace {

void AddWord(std::string& words, const std::string& word) {
    words += (words.empty() ? "" : " ") + word;
}

// The values among which an option chooses, such as "none memory" of "none|memory"; empty if it takes any
// text. A word in capitals stands for a text of the user's.
std::string ChoicesOf(const ListedOption& option) {
    std::string choices;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = option.Value.find('|', begin);
        const std::string word = option.Value.substr(begin, end - begin);
        const bool isText = word.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") != std::string::npos;
        if (!word.empty() && !isText) AddWord(choices, word);
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

void WriteBash(std::ostream& out, const std::vector<ListedCommand>& commands) {
    out << R"(_kelvarin_import() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]}
    local words=
    case $command in
)";
    std::string commandNames;
    for (const ListedCommand& command : commands) {
        AddWord(commandNames, command.Name);
        out << "    " << command.Name << ")\n        case $before in\n";
        std::string names;
        for (const ListedOption& option : command.Options) {
            AddWord(names, option.Name);
            const std::string choices = ChoicesOf(option);
            if (!choices.empty()) out << "        " << option.Name << ") words='" << choices << "' ;;\n";
        }
        out << "        *) [[ $word != -* ]] || words='" << names << "' ;;\n        esac ;;\n";
    }
    out << "    *) [[ COMP_CWORD -ne 1 ]] || words='" << commandNames << R"(' ;;
    esac
    COMPREPLY=($(compgen -W "$words" -- "$word"))
}
complete -o default -F _kelvarin_import kelvarin-import
)";
}

void WriteZsh(std::ostream& out, const std::vector<ListedCommand>& commands) {
    out << R"(#compdef kelvarin-import
_kelvarin_import() {
    if (( CURRENT == 2 )); then
        local -a commands=(
)";
    for (const ListedCommand& command : commands)
        out << "            " << Quoted(command.Name + ":" + command.Description) << "\n";
    out << R"(        )
        _describe command commands
        _files
        return
    fi
    local command=$words[2]
    shift words
    (( CURRENT-- ))
    case $command in
)";
    for (const ListedCommand& command : commands) {
        out << "    " << command.Name << ")\n        _arguments";
        for (const ListedOption& option : command.Options) {
            std::string entry = "*" + option.Name + "[" + InBrackets(option.Description) + "]";
            const std::string choices = ChoicesOf(option);
            if (!option.Value.empty())
                entry +=
                    ":" + InBrackets(option.Value) + ":" + (choices.empty() ? "_files" : "(" + choices + ")");
            out << " \\\n            " << Quoted(entry);
        }
        out << " \\\n            '*:file:_files' ;;\n";
    }
    out << R"(    *) _files ;;
    esac
}
compdef _kelvarin_import kelvarin-import
)";
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
    constexpr std::pair<const char*, decltype(&WriteBash)> Writers[] = {
        {"bash", WriteBash}, {"zsh", WriteZsh}, {"fish", WriteFish}};
    for (const auto& [name, write] : Writers) {
        if (shell != name) continue;
        write(out, commands);
        return true;
    }
    return false;
}

}  // namespace kelvarin::cli
