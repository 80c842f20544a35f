#include "cli/report/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/report/AssumptionsReport.h"
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
void WriteSaving(ReportStream out, const guess::TimeGuess& guess) {
    if (!guess.Saved.empty()) out << Indent << Phrase("saved in {}", guess.Saved) << "\n";
    if (!guess.SaveFailure.empty()) out << Indent << Phrase("not saved: {}", guess.SaveFailure) << "\n";
}

void WritePlan(ReportStream out, const guess::TimeGuess& guess) {
    WriteAssumptions(out, guess.Assumed);
    if (!guess.Settings.empty()) {
        out << Indent << Phrase("as options: {}", OptionsText(guess.Settings)) << "\n";
    } else {
        out << Indent << Phrase("`kelvarin-import prepare FILE` writes such a copy to keep") << "\n";
    }
}
}  // namespace

void WriteGuessText(ReportStream out, const guess::TimeGuess& guess) {
    if (!guess.Assumed.empty()) {
        WritePlan(out, guess);
        WriteSaving(out, guess);
        return;
    }
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
    WriteSaving(out, guess);
}

Json GuessToJson(const guess::TimeGuess& guess) {
    if (!guess.Failure.empty()) return {{"failure", guess.Failure}};
    Json settings = Json::object();
    for (const auto& [key, value] : guess.Settings) settings[key] = value;
    return {{"certainty", CodeOf(guess.Sureness)},
            {"basis", guess.Basis},
            {"assumed", AssumptionsToJson(guess.Assumed)},
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
