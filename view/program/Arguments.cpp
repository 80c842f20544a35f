#include "view/program/Arguments.h"

#include <algorithm>
#include <array>

#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "view/plot/Picture.h"

namespace kelvarin::view {
namespace {
std::vector<std::string> Parts(const std::string& text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(separator, from), text.size());
        parts.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return parts;
}

std::string TakePicture(const std::string& value, Arguments& arguments) {
    arguments.Picture = value;
    if (!PictureEnding(value).empty()) return {};
    return Phrase("'{}' is no picture that can be written; its name ends in .png, .svg or .pdf", value);
}

std::string TakeSize(const std::string& value, Arguments& arguments) {
    constexpr int Least = 100;
    constexpr int Most = 20'000;
    const std::vector<std::string> parts = Parts(value, 'x');
    const bool isSize =
        parts.size() == 2 && ParseWhole(parts[0], arguments.Width) && ParseWhole(parts[1], arguments.Height);
    const auto isAllowed = [](int pixels) { return pixels >= Least && pixels <= Most; };
    if (isSize && isAllowed(arguments.Width) && isAllowed(arguments.Height)) return {};
    return Phrase("'{}' is no size; allowed are {}x{} to {}x{}", value, Least, Least, Most, Most);
}

std::string TakeSignals(const std::string& value, Arguments& arguments) {
    for (std::string& name : Parts(value, ',')) arguments.Signals.push_back(std::move(name));
    return {};
}

// An option with a value; Take says what is wrong with it.
struct ValueOption {
    const char* Name;
    std::string (*Take)(const std::string& value, Arguments& arguments);
};

const std::array ValueOptions = {
    ValueOption{"--plot", TakePicture},
    ValueOption{"--signals", TakeSignals},
    ValueOption{"--from",
                [](const std::string& value, Arguments& to) {
                    to.From = value;
                    return std::string();
                }},
    ValueOption{"--to",
                [](const std::string& value, Arguments& to) {
                    to.To = value;
                    return std::string();
                }},
    ValueOption{"--size", TakeSize},
    ValueOption{"--set",
                [](const std::string& value, Arguments& to) {
                    to.Settings.push_back(value);
                    return std::string();
                }},
    ValueOption{"--language",
                [](const std::string& value, Arguments& to) {
                    to.Language = value;
                    return std::string();
                }},
};

// What only a picture needs.
std::string WhyIncomplete(const Arguments& arguments) {
    if (arguments.WantsHelp || arguments.WantsVersion) return {};
    if (arguments.Picture.empty()) {
        const bool isForPicture =
            !arguments.Signals.empty() || !arguments.From.empty() || !arguments.To.empty();
        return isForPicture ? Phrase("--signals, --from and --to need --plot") : std::string();
    }
    return arguments.Files.size() == 1 ? std::string() : Phrase("--plot draws one file");
}
}  // namespace

std::string ParseArguments(const std::vector<std::string>& words, Arguments& arguments) {
    bool areFiles = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (areFiles || word.size() < 2 || word[0] != '-') {
            arguments.Files.push_back(word);
            continue;
        }
        if (word == "--") {
            areFiles = true;
        } else if (word == "--help" || word == "-h") {
            arguments.WantsHelp = true;
        } else if (word == "--version") {
            arguments.WantsVersion = true;
        } else {
            const std::size_t equals = word.find('=');
            const std::string name = word.substr(0, equals);
            const auto option = std::find_if(ValueOptions.begin(), ValueOptions.end(),
                                             [&](const ValueOption& one) { return name == one.Name; });
            if (option == ValueOptions.end()) return Phrase("there is no option {}", name);
            const bool isNext = equals == std::string::npos && i + 1 < words.size();
            const std::string value = equals != std::string::npos ? word.substr(equals + 1)
                                      : isNext                    ? words[++i]
                                                                  : "";
            if (value.empty()) return Phrase("{} needs a value", name);
            const std::string reason = option->Take(value, arguments);
            if (!reason.empty()) return name + ": " + reason;
        }
    }
    return WhyIncomplete(arguments);
}

std::string UsageText() {
    return Phrase(
        "kelvarin-view [FILE...]\n"
        "kelvarin-view --plot OUT.png|svg|pdf [--signals A,B] [--from T] [--to T] [--size WxH] FILE\n"
        "\n"
        "Shows the signals of measurement text files, or draws them as a picture without a display.\n"
        "\n"
        "  --plot OUT      Write a picture and end\n"
        "  --signals A,B   Signals by name or number, in place of the first 12\n"
        "  --from T        Begin at a time: 2024-01-31 08:00:00.5, or a time of day on the first date; "
        "seconds\n"
        "                  or hh:mm:ss of a file whose times count from a start\n"
        "  --to T          End there\n"
        "  --size WxH      Pixels of the picture (default: 1200x800)\n"
        "  --set KEY=VALUE A setting for this run; repeatable\n"
        "  --language CODE Language of all texts, such as de\n"
        "  --help, --version\n"
        "\n"
        "Exit status: 0 done; 1 the file could not be read or the picture not be written; 2 the command\n"
        "line is wrong.\n");
}
}  // namespace kelvarin::view
