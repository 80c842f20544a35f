#include "host/guess/TimeAdvice.h"

#include <algorithm>

#include "host/Reading.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::guess {

namespace {

// Words of letters, digits and a few marks need no quotes in any shell.
std::string Quoted(const std::string& word) {
    const bool isPlain = std::all_of(word.begin(), word.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '=' ||
               c == '.';
    });
    if (isPlain) return word;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

std::string OptionsText(const SettingList& settings) {
    std::string options;
    for (const auto& [key, value] : settings) {
        options += (options.empty() ? "--set " : " --set ") + Quoted(key + "=" + value);
    }
    return options;
}

std::string CertaintyText(Certainty sureness) {
    if (sureness == Certainty::Certain) return Phrase("certain");
    return sureness == Certainty::Likely ? Phrase("likely") : Phrase("a guess");
}

std::string AdviseTimestamp(const ModuleLoader& module, const std::u16string& path,
                            const CImportFilter& filter) {
    const Reading format = ReadingOf(filter);
    const std::string why =
        format.TimestampFormat.empty()
            ? Phrase("no row has a timestamp, since no timestamp format is set")
            : Phrase("no row fits the timestamp format '{}'", Utf16ToUtf8(format.TimestampFormat));
    const TimeGuess guess = GuessTime(module, path);
    if (!guess.Failure.empty()) return why;
    if (guess.IsFixedInterval) {
        return why + Phrase(" and no format fits; {}: {}", guess.Basis, OptionsText(guess.Settings));
    }
    return why +
           Phrase("; {} ({}): {}", guess.Basis, CertaintyText(guess.Sureness), OptionsText(guess.Settings));
}

}  // namespace kelvarin::guess
