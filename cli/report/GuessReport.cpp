#include "cli/report/GuessReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/report/AssumptionsReport.h"
#include "cli/report/Options.h"
#include "host/TypeNames.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
constexpr const char* Indent = "            ";

void WriteSaving(ReportStream out, const plan::Guess& guess) {
    if (!guess.Saved.empty()) out << Indent << Phrase("saved in {}", guess.Saved) << "\n";
    if (!guess.SaveFailure.empty()) out << Indent << Phrase("not saved: {}", guess.SaveFailure) << "\n";
}

// With those for single columns, if these are not more than `most`.
std::string AllOptions(const plan::Guess& guess, std::size_t most) {
    const std::string columns = guess.Columns.size() > most ? "" : OptionsText(guess.Columns);
    const std::string settings = OptionsText(guess.Settings, guess.Letters);
    return settings + (settings.empty() || columns.empty() ? "" : " ") + columns;
}

// What takes another table.
std::string OptionFor(const plan::OtherTable& other) {
    return OptionsText(SettingList{{"FirstLine", std::to_string(other.FirstLine)}});
}

Json OthersToJson(const std::vector<plan::OtherTable>& others) {
    Json list = Json::array();
    for (const plan::OtherTable& other : others) {
        list.push_back({{"firstLine", other.FirstLine},
                        {"lastLine", other.LastLine},
                        {"columns", other.Columns},
                        {"rows", other.Rows},
                        {"options", OptionFor(other)}});
    }
    return list;
}

void WriteOthers(ReportStream out, const std::vector<plan::OtherTable>& others) {
    constexpr std::size_t MostShown = 5;
    for (std::size_t i = 0; i < std::min(others.size(), MostShown); ++i) {
        const plan::OtherTable& other = others[i];
        out << Indent
            << Phrase("another table: lines {} to {}, columns: {}, rows: {}; to take it: {}", other.FirstLine,
                      other.LastLine, other.Columns, other.Rows, OptionFor(other))
            << "\n";
    }
    if (others.size() > MostShown)
        out << Indent << Phrase("... and {} more tables", others.size() - MostShown) << "\n";
}

Json ColumnsToJson(const std::vector<ColumnChoice>& choices) {
    Json columns = Json::array();
    for (const ColumnChoice& choice : choices) {
        Json column = {{"column", choice.Column + 1}};
        if (choice.Type != 0) column["type"] = TypeWord(choice.Type);
        if (!choice.Name.empty()) column["name"] = Utf16ToUtf8(choice.Name);
        if (!choice.Unit.empty()) column["unit"] = Utf16ToUtf8(choice.Unit);
        if (!choice.Import) column["skip"] = true;
        columns.push_back(std::move(column));
    }
    return columns;
}

void WritePlan(ReportStream out, const plan::Guess& guess) {
    WriteAssumptions(out, Phrase("assumed"), guess.Assumed);
    WriteOthers(out, guess.Others);
    if (guess.IsCopied) {
        out << Indent << Phrase("`kelvarin-import prepare FILE` writes such a copy to keep") << "\n";
        return;
    }
    constexpr std::size_t MostShown = 8;
    const std::string options = AllOptions(guess, MostShown);
    if (!options.empty()) out << Indent << Phrase("as options: {}", options) << "\n";
    if (guess.Columns.size() > MostShown)
        out << Indent << Phrase("{} more options for single columns; --save keeps all", guess.Columns.size())
            << "\n";
}
}  // namespace

void WriteGuessText(ReportStream out, const plan::Guess& guess) {
    if (!guess.Assumed.empty()) {
        WritePlan(out, guess);
        WriteSaving(out, guess);
        return;
    }
    out << ReportLabel(Phrase("guess")) << Phrase("none: {}", guess.Failure) << "\n";
    WriteSaving(out, guess);
}

Json GuessToJson(const plan::Guess& guess) {
    if (!guess.Failure.empty()) return {{"failure", guess.Failure}};
    Json settings = Json::object();
    for (const auto& [key, value] : guess.Settings) settings[key] = value;
    Json document = {{"certainty", CodeOf(guess.Sureness)},
                     {"basis", guess.Basis},
                     {"assumed", AssumptionsToJson(guess.Assumed)},
                     {"settings", settings},
                     {"columns", ColumnsToJson(guess.Columns)},
                     {"options", AllOptions(guess, guess.Columns.size())},
                     {"otherTables", OthersToJson(guess.Others)},
                     {"fixedInterval", guess.IsFixedInterval},
                     {"rows", guess.Rows},
                     {"fitting", guess.Read},
                     {"rising", guess.Rising},
                     {"objections", guess.Objections},
                     {"otherBasis", ""},
                     {"otherOptions", ""},
                     {"saved", guess.Saved.empty() ? Json(nullptr) : Json(guess.Saved)}};
    if (!guess.Letters.empty()) document["formatLetters"] = Utf16ToUtf8(guess.Letters);
    return document;
}
}  // namespace kelvarin::cli
