#include "cli/report/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/report/Options.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
constexpr const char* Indent = "            ";

std::vector<std::string> ObjectionsOf(const guess::TimeGuess& guess) {
    std::vector<std::string> objections = guess.Objections;
    if (!guess.OtherWay.Text.empty()) objections.push_back(RemedyText(guess.OtherWay));
    return objections;
}
}  // namespace

void WriteGuessText(ReportStream out, const guess::TimeGuess& guess) {
    out << ReportLabel(Phrase("guess"));
    if (!guess.Failure.empty()) {
        out << Phrase("none: {}", guess.Failure) << "\n";
        return;
    }
    out << CertaintyInWords(guess.Sureness) << ": " << guess.Basis;
    if (!guess.IsFixedInterval)
        out << "; " << Phrase("{} of the {} rows looked at fit", guess.Read, guess.Rows);
    out << "\n" << Indent << OptionsText(guess.Settings) << "\n";
    for (const std::string& objection : ObjectionsOf(guess))
        out << Indent << Phrase("but: {}", objection) << "\n";
    if (!guess.OtherBasis.empty())
        out << Indent << Phrase("or: {}: {}", guess.OtherBasis, OptionsText(guess.OtherSettings)) << "\n";
    if (!guess.Saved.empty()) out << Indent << Phrase("saved in {}", guess.Saved) << "\n";
    if (!guess.SaveFailure.empty()) out << Indent << Phrase("not saved: {}", guess.SaveFailure) << "\n";
}

Json GuessToJson(const guess::TimeGuess& guess) {
    if (!guess.Failure.empty()) return {{"failure", guess.Failure}};
    constexpr const char* Certainties[] = {"certain", "likely", "guess"};  // the same in every language
    Json settings = Json::object();
    for (const auto& [key, value] : guess.Settings) settings[key] = value;
    return {{"certainty", Certainties[static_cast<int>(guess.Sureness)]},
            {"basis", guess.Basis},
            {"settings", settings},
            {"options", OptionsText(guess.Settings)},
            {"fixedInterval", guess.IsFixedInterval},
            {"rows", guess.Rows},
            {"fitting", guess.Read},
            {"rising", guess.Rising},
            {"objections", ObjectionsOf(guess)},
            {"otherBasis", guess.OtherBasis},
            {"otherOptions", OptionsText(guess.OtherSettings)},
            {"saved", guess.Saved.empty() ? Json(nullptr) : Json(guess.Saved)}};
}
}  // namespace kelvarin::cli
