#include "cli/report/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/TypeNames.h"
#include "cli/report/AssumptionsReport.h"
#include "cli/report/Options.h"
#include "host/language/Phrase.h"
#include "platform/framework/ShellText.h"
#include "platform/framework/Text.h"

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

// With those for single columns, if these are not more than `most`.
std::string AllOptions(const guess::TimeGuess& guess, std::size_t most) {
    const std::string columns = guess.Columns.size() > most ? "" : OptionsText(guess.Columns);
    std::string settings = OptionsText(guess.Settings);
    if (!guess.Letters.empty()) settings += " --format-letters " + ShellQuoted(Utf16ToUtf8(guess.Letters));
    return settings + (settings.empty() || columns.empty() ? "" : " ") + columns;
}

Json ColumnsToJson(const std::vector<ColumnChoice>& choices) {
    Json columns = Json::array();
    for (const ColumnChoice& choice : choices) {
        Json column = {{"column", choice.Column + 1}};
        if (choice.Type != 0) column["type"] = TypeOption(choice.Type);
        if (!choice.Name.empty()) column["name"] = Utf16ToUtf8(choice.Name);
        if (!choice.Unit.empty()) column["unit"] = Utf16ToUtf8(choice.Unit);
        if (!choice.Import) column["skip"] = true;
        columns.push_back(std::move(column));
    }
    return columns;
}

void WritePlan(ReportStream out, const guess::TimeGuess& guess) {
    WriteAssumptions(out, guess.Assumed);
    if (!guess.Settings.empty()) {
        constexpr std::size_t MostShown = 8;
        out << Indent << Phrase("as options: {}", AllOptions(guess, MostShown)) << "\n";
        if (guess.Columns.size() > MostShown)
            out << Indent
                << Phrase("{} more options for single columns; --save keeps all", guess.Columns.size())
                << "\n";
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
    Json document = {{"certainty", CodeOf(guess.Sureness)},
                     {"basis", guess.Basis},
                     {"assumed", AssumptionsToJson(guess.Assumed)},
                     {"settings", settings},
                     {"columns", ColumnsToJson(guess.Columns)},
                     {"options", AllOptions(guess, guess.Columns.size())},
                     {"fixedInterval", guess.IsFixedInterval},
                     {"rows", guess.Rows},
                     {"fitting", guess.Read},
                     {"rising", guess.Rising},
                     {"objections", ObjectionsOf(guess)},
                     {"otherBasis", guess.OtherBasis},
                     {"otherOptions", OptionsText(guess.OtherSettings)},
                     {"saved", guess.Saved.empty() ? Json(nullptr) : Json(guess.Saved)}};
    if (!guess.Letters.empty()) document["formatLetters"] = Utf16ToUtf8(guess.Letters);
    return document;
}
}  // namespace kelvarin::cli
