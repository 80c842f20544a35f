#include "cli/PlanFile.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

#include "host/TypeNames.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;
using plan::FileKind;
using plan::FileKinds;
using plan::FoundTimes;
using plan::PlannedColumn;
using plan::ReadingPlan;
using plan::TimeKind;
using plan::TimeRecipe;

namespace {
constexpr int Version = 1;
constexpr std::uint64_t MostRows = 1'000'000'000;
constexpr std::size_t MostColumns = 1'000'000;

// The words of an enumeration, by its values.
constexpr std::array KindWords = {"text", "parts", "number", "interval"};
constexpr std::array OrderWords = {"year first", "day first", "month first"};
constexpr std::array ProofWords = {"unneeded", "texts", "name", "steps", "custom", "none"};
constexpr std::array PartWords = {"year",  "month",        "day",     "day of year",
                                  "hours", "minutes",      "seconds", "hours and minutes",
                                  "date",  "milliseconds", "clock",   "week"};

// What is wrong with a plan.
struct PlanError {
    std::string Key;
};

template <class Value, std::size_t Count>
std::string WordOf(const std::array<const char*, Count>& words, Value value) {
    return words.at(static_cast<std::size_t>(value));
}

template <class Value, std::size_t Count>
Value ValueOf(const std::array<const char*, Count>& words, const Json& json, const char* key) {
    const std::string word = json.at(key).get<std::string>();
    const auto found = std::find(words.begin(), words.end(), word);
    if (found == words.end()) throw PlanError{key};
    return static_cast<Value>(found - words.begin());
}

std::string TextOf(char16_t sign) {
    return sign == u'\0' ? std::string() : Utf16ToUtf8(std::u16string(1, sign));
}

char16_t SignOf(const Json& json, const char* key) {
    const std::u16string text = Utf8ToUtf16(json.at(key).get<std::string>());
    if (text.size() > 1) throw PlanError{key};
    return text.empty() ? u'\0' : text.front();
}

template <class Number>
Number NumberOf(const Json& json, const char* key, Number least, Number most) {
    const Json& value = json.at(key);
    if (!value.is_number_integer()) throw PlanError{key};
    const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
    const auto number = value.get<std::int64_t>();
    if (isTooLarge || number < static_cast<std::int64_t>(least) || number > static_cast<std::int64_t>(most))
        throw PlanError{key};
    return static_cast<Number>(number);
}

// A column's number from 1, as its index.
std::size_t ColumnOf(const Json& json, const char* key, std::size_t width) {
    return NumberOf<std::size_t>(json, key, 1, width) - 1;
}

Json ColumnToJson(const PlannedColumn& column, const plan::CellCounts& cells) {
    Json json = {{"name", Utf16ToUtf8(column.Name)}, {"unit", Utf16ToUtf8(column.Unit)}};
    // No cell that was looked at tells the type.
    json["type"] = cells.Filled() == 0 ? Json(nullptr) : Json(WordOf(PlanTypeWords, column.Type));
    if (cells.Truth > 0) json["words"] = true;
    if (column.HasAmounts) json["amounts"] = true;
    return json;
}

Json TimesToJson(const FileKind& kind) {
    const FoundTimes& times = *kind.Plan.Times;
    const TimeRecipe& recipe = times.Recipe;
    Json json = {{"kind", WordOf(KindWords, recipe.Kind)}};
    for (const std::size_t column : recipe.Columns) json["columns"].push_back(column + 1);
    for (const plan::PartColumn& part : recipe.Parts)
        json["parts"].push_back({{"column", part.Column + 1}, {"part", WordOf(PartWords, part.Part)}});
    json["order"] = WordOf(OrderWords, recipe.Style.Order);
    json["orderBy"] = WordOf(ProofWords, times.Order);
    json["orderFile"] = Utf16ToUtf8(kind.OrderFile);
    json["minutesFirst"] = recipe.Style.BeginsWithMinutes;
    json["fractionIsCounted"] = recipe.Style.FractionIsCounted;
    json["year"] = recipe.Style.Year;
    json["unit"] = recipe.Unit;
    json["unitIsNamed"] = times.IsUnitNamed;
    json["epoch"] = recipe.Epoch;
    json["offset"] = recipe.Offset;
    json["decimalMark"] = TextOf(recipe.Mark);
    json["absolute"] = recipe.IsAbsolute;
    json["utc"] = recipe.IsUtc;
    json["zones"] = recipe.AppliesZone;
    json["overMidnight"] = recipe.RollsOver;
    json["clockIsShort"] = times.IsClockShort;
    return json;
}

Json KindToJson(const FileKind& kind) {
    const ReadingPlan& shared = kind.Plan;
    Json columns = Json::array();
    for (std::size_t i = 0; i < shared.Width; ++i)
        columns.push_back(ColumnToJson(shared.Columns[i], shared.Columns[i].Cells));
    return {{"files", kind.Files},
            {"rows", shared.RowsLookedAt},
            {"separator", TextOf(shared.How.Separator)},
            {"mergeSeparators", shared.How.Merges},
            {"linesAreQuoted", shared.How.IsLineQuoted},
            {"decimalMark", TextOf(shared.Mark)},
            {"header", shared.NamesLine != 0},
            {"columns", columns},
            {"times", TimesToJson(kind)}};
}

void ReadColumn(const Json& json, std::uint64_t rows, ReadingPlan& shared) {
    PlannedColumn column;
    column.Name = Utf8ToUtf16(json.at("name").get<std::string>());
    column.Unit = Utf8ToUtf16(json.at("unit").get<std::string>());
    column.HasAmounts = json.value("amounts", false);
    if (!json.at("type").is_null()) {
        column.Type = ValueOf<plan::ColumnType>(PlanTypeWords, json, "type");
        column.Cells = plan::UsualCells(column, json.value("words", false), rows);
    }
    shared.Columns.push_back(std::move(column));
}

TimeRecipe RecipeOf(const Json& json, std::size_t width) {
    constexpr std::int64_t LongestUnit = std::int64_t{366} * 86'400 * 1'000'000'000;
    TimeRecipe recipe;
    recipe.Kind = ValueOf<TimeKind>(KindWords, json, "kind");
    for (const Json& column : json.value("columns", Json::array()))
        recipe.Columns.push_back(ColumnOf({{"columns", column}}, "columns", width));
    for (const Json& part : json.value("parts", Json::array()))
        recipe.Parts.push_back(
            {ColumnOf(part, "column", width), ValueOf<plan::TimePart>(PartWords, part, "part")});
    recipe.Style.Order = ValueOf<plan::DateOrder>(OrderWords, json, "order");
    recipe.Style.BeginsWithMinutes = json.at("minutesFirst").get<bool>();
    recipe.Style.FractionIsCounted = json.at("fractionIsCounted").get<bool>();
    recipe.Style.Year = NumberOf(json, "year", 0, 9999);
    recipe.Unit = NumberOf<std::int64_t>(json, "unit", 1, LongestUnit);
    recipe.Epoch = NumberOf<std::int64_t>(json, "epoch", INT64_MIN, INT64_MAX);
    recipe.Offset = NumberOf<std::int64_t>(json, "offset", 0, 10'000'000);
    recipe.Mark = SignOf(json, "decimalMark");
    recipe.IsAbsolute = json.at("absolute").get<bool>();
    recipe.IsUtc = json.at("utc").get<bool>();
    recipe.AppliesZone = json.at("zones").get<bool>();
    recipe.RollsOver = json.at("overMidnight").get<bool>();
    const bool needsColumns = recipe.Kind == TimeKind::Text || recipe.Kind == TimeKind::Number;
    if (needsColumns == recipe.Columns.empty()) throw PlanError{"columns"};
    if ((recipe.Kind == TimeKind::Parts) == recipe.Parts.empty()) throw PlanError{"parts"};
    return recipe;
}

FileKind KindFromJson(const Json& json) {
    FileKind kind;
    ReadingPlan& shared = kind.Plan;
    kind.Files = NumberOf<std::size_t>(json, "files", 1, MostRows);
    shared.RowsLookedAt = NumberOf<std::size_t>(json, "rows", 0, MostRows);
    shared.How = {SignOf(json, "separator"), json.at("mergeSeparators").get<bool>(),
                  json.at("linesAreQuoted").get<bool>()};
    shared.Mark = SignOf(json, "decimalMark");
    shared.NamesLine = json.at("header").get<bool>() ? 1 : 0;
    const Json& columns = json.at("columns");
    shared.Width = columns.size();
    if (!columns.is_array() || columns.empty() || shared.Width > MostColumns) throw PlanError{"columns"};
    for (const Json& column : columns) ReadColumn(column, shared.RowsLookedAt, shared);
    const Json& timesJson = json.at("times");
    FoundTimes times;
    times.Recipe = RecipeOf(timesJson, shared.Width);
    times.Order = ValueOf<plan::OrderProof>(ProofWords, timesJson, "orderBy");
    times.IsUnitNamed = timesJson.at("unitIsNamed").get<bool>();
    times.IsClockShort = timesJson.at("clockIsShort").get<bool>();
    kind.OrderFile = Utf8ToUtf16(timesJson.at("orderFile").get<std::string>());
    for (const std::size_t column : plan::ColumnsOf(times.Recipe)) shared.Columns[column].IsTime = true;
    shared.Times = std::move(times);
    return kind;
}
}  // namespace

std::string PlanText(const FileKinds& kinds) {
    Json all = Json::array();
    for (const FileKind& kind : kinds.All) all.push_back(KindToJson(kind));
    Json document = {{"format", "kelvarin reading plan"}, {"version", Version}};
    if (!kinds.PlanFile.empty()) document["readFrom"] = Utf16ToUtf8(kinds.PlanFile);
    document["kinds"] = all;
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<FileKinds> ParsePlan(const std::string& text, std::string& complaint) {
    try {
        const Json document = Json::parse(text);
        if (document.at("version") != Version) throw PlanError{"version"};
        FileKinds kinds;
        kinds.PlanFile = Utf8ToUtf16(document.value("readFrom", std::string()));
        for (const Json& kind : document.at("kinds")) kinds.All.push_back(KindFromJson(kind));
        if (!kinds.All.empty()) return kinds;
        complaint = Phrase("it is no reading plan: {}", "kinds");
    } catch (const PlanError& error) {
        complaint = Phrase("it is no reading plan: {}", error.Key);
    } catch (const Json::exception& error) {
        complaint = Phrase("it is no reading plan: {}", error.what());
    }
    return std::nullopt;
}

std::optional<FileKinds> ReadPlanFile(const std::string& file, std::string& complaint) {
    constexpr std::uint64_t LargestFile = std::uint64_t{256} << 20;
    std::string text;
    try {
        CFile in;
        CFileException error;
        if (!in.Open(PathFromNative(file).c_str(), CFile::modeRead, &error)) {
            complaint = Utf16ToUtf8(DescribeFileError(error));
            return std::nullopt;
        }
        text.resize(static_cast<std::size_t>(std::min(in.GetLength(), LargestFile)));
        text.resize(in.Read(text.data(), text.size()));
    } catch (CFileException* failure) {
        complaint = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return std::nullopt;
    }
    return ParsePlan(text, complaint);
}

std::string WritePlanFile(const std::string& file, const FileKinds& kinds) {
    try {
        ReplaceFile(PathFromNative(file), PlanText(kinds));
    } catch (CFileException* failure) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
    return {};
}
}  // namespace kelvarin::cli
