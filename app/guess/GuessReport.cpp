#include "app/guess/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/Style.h"
#include "app/language/Phrase.h"

using Json = nlohmann::ordered_json;

namespace {

constexpr const char* Indent = "            ";

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

// Names of a language of its own, for scripts.
const char* CertaintyName(Certainty sureness) {
    constexpr const char* Names[] = {"certain", "likely", "guess"};
    return Names[static_cast<int>(sureness)];
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

void WriteGuessText(std::ostream& out, const TimeGuess& guess) {
    out << ReportLabel(Phrase("guess"));
    if (!guess.Failure.empty()) {
        out << Phrase("none: {}", guess.Failure) << "\n";
        return;
    }
    out << CertaintyText(guess.Sureness) << ": " << guess.Basis;
    if (!guess.IsFixedInterval)
        out << "; " << Phrase("{} of the {} rows looked at fit", guess.Read, guess.Rows);
    out << "\n" << Indent << OptionsText(guess.Settings) << "\n";
    for (const std::string& objection : guess.Objections)
        out << Indent << Phrase("but: {}", objection) << "\n";
    if (!guess.OtherBasis.empty())
        out << Indent << Phrase("or: {}: {}", guess.OtherBasis, OptionsText(guess.OtherSettings)) << "\n";
    if (!guess.Saved.empty()) out << Indent << Phrase("saved in {}", guess.Saved) << "\n";
    if (!guess.SaveFailure.empty()) out << Indent << Phrase("not saved: {}", guess.SaveFailure) << "\n";
}

Json GuessToJson(const TimeGuess& guess) {
    if (!guess.Failure.empty()) return {{"failure", guess.Failure}};
    Json settings = Json::object();
    for (const auto& [key, value] : guess.Settings) settings[key] = value;
    return {{"certainty", CertaintyName(guess.Sureness)},
            {"basis", guess.Basis},
            {"settings", settings},
            {"options", OptionsText(guess.Settings)},
            {"fixedInterval", guess.IsFixedInterval},
            {"rows", guess.Rows},
            {"fitting", guess.Read},
            {"rising", guess.Rising},
            {"objections", guess.Objections},
            {"otherBasis", guess.OtherBasis},
            {"otherOptions", OptionsText(guess.OtherSettings)},
            {"saved", guess.Saved.empty() ? Json(nullptr) : Json(guess.Saved)}};
}
