#include "cli/report/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/report/TextLayout.h"
#include "host/guess/TimeAdvice.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

constexpr const char* Indent = "            ";

// Names of a language of its own, for scripts.
const char* CertaintyName(guess::Certainty sureness) {
    constexpr const char* Names[] = {"certain", "likely", "guess"};
    return Names[static_cast<int>(sureness)];
}

}  // namespace

void WriteGuessText(std::ostream& out, const guess::TimeGuess& guess) {
    out << ReportLabel(Phrase("guess"));
    if (!guess.Failure.empty()) {
        out << Phrase("none: {}", guess.Failure) << "\n";
        return;
    }
    out << guess::CertaintyText(guess.Sureness) << ": " << guess.Basis;
    if (!guess.IsFixedInterval)
        out << "; " << Phrase("{} of the {} rows looked at fit", guess.Read, guess.Rows);
    out << "\n" << Indent << guess::OptionsText(guess.Settings) << "\n";
    for (const std::string& objection : guess.Objections)
        out << Indent << Phrase("but: {}", objection) << "\n";
    if (!guess.OtherBasis.empty())
        out << Indent << Phrase("or: {}: {}", guess.OtherBasis, guess::OptionsText(guess.OtherSettings))
            << "\n";
    if (!guess.Saved.empty()) out << Indent << Phrase("saved in {}", guess.Saved) << "\n";
    if (!guess.SaveFailure.empty()) out << Indent << Phrase("not saved: {}", guess.SaveFailure) << "\n";
}

Json GuessToJson(const guess::TimeGuess& guess) {
    if (!guess.Failure.empty()) return {{"failure", guess.Failure}};
    Json settings = Json::object();
    for (const auto& [key, value] : guess.Settings) settings[key] = value;
    return {{"certainty", CertaintyName(guess.Sureness)},
            {"basis", guess.Basis},
            {"settings", settings},
            {"options", guess::OptionsText(guess.Settings)},
            {"fixedInterval", guess.IsFixedInterval},
            {"rows", guess.Rows},
            {"fitting", guess.Read},
            {"rising", guess.Rising},
            {"objections", guess.Objections},
            {"otherBasis", guess.OtherBasis},
            {"otherOptions", guess::OptionsText(guess.OtherSettings)},
            {"saved", guess.Saved.empty() ? Json(nullptr) : Json(guess.Saved)}};
}

}  // namespace kelvarin::cli
