#include <nlohmann/json.hpp>

#include "cli/report/CheckReport.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

Json PlaceToJson(const check::FilePlace& place) {
    Json json = {{"line", place.Line}};
    if (place.ModuleLine != 0) json["moduleLine"] = place.ModuleLine;
    if (!place.Text.empty()) json["text"] = Utf16ToUtf8(place.Text);
    return json;
}

Json PlacesToJson(const check::FilePlaces& places) {
    Json first = Json::array();
    for (const check::FilePlace& place : places.FirstFew()) first.push_back(PlaceToJson(place));
    Json json = {{"count", places.Count()}, {"first", first}};
    json["last"] = places.FirstFew().empty() ? Json() : PlaceToJson(places.Last());
    return json;
}

Json ColumnsToJson(const check::CheckResult& result) {
    Json columns = Json::array();
    for (const check::ColumnCheck& column : result.Columns) {
        columns.push_back({{"column", column.Column},
                           {"name", Utf16ToUtf8(column.Name)},
                           {"samples", column.Samples},
                           {"empty", column.Empty},
                           {"refused", PlacesToJson(column.Refused)}});
    }
    return columns;
}

Json DroppedToJson(const check::DroppedRows& dropped) {
    constexpr const char* Names[check::DropReasonCount] = {
        "empty", "unreadableAtStart", "unreadable", "unreadableAtEnd", "repeats",
        "falls", "notLater",          "outOfRange", "noStep",          "unknown"};
    Json reasons = Json::object();
    for (std::size_t i = 0; i < check::DropReasonCount; ++i) {
        const check::FilePlaces& places = dropped.Of(static_cast<check::DropReason>(i));
        if (places.Count() != 0) reasons[Names[i]] = PlacesToJson(places);
    }
    return {{"count", dropped.Count()}, {"examined", dropped.Examined()}, {"reasons", reasons}};
}

const char* NameOf(check::DateOrderState state) {
    switch (state) {
        case check::DateOrderState::DayAbove12:
        case check::DateOrderState::WouldFall:
        case check::DateOrderState::RunsOn:
            return "proven";
        case check::DateOrderState::OneDate:
        case check::DateOrderState::Ambiguous:
            return "ambiguous";
        case check::DateOrderState::OtherIsEven:
            return "doubtful";
        case check::DateOrderState::Same:
            return "equal";
        case check::DateOrderState::Unasked:
            break;
    }
    return "unasked";
}

Json GapsToJson(const check::TimeSeries& series, const check::Rhythm& rhythm) {
    Json longest = Json::array();
    for (const check::TimeStep& step : series.LongestSteps()) {
        if (step.Length() <= rhythm.GapAbove) break;
        longest.push_back({{"line", step.Line}, {"from", step.From}, {"to", step.To}});
    }
    return {{"above", rhythm.GapAbove}, {"count", rhythm.Gaps}, {"longest", longest}};
}

Json TimeToJson(const check::TimeSeries& series) {
    if (series.Count() == 0) return nullptr;
    const check::Rhythm rhythm = series.GetRhythm();
    const check::IntervalCounts& counts = series.Intervals();
    return {{"rows", series.Count()},
            {"first", series.First()},
            {"firstLine", series.FirstLine()},
            {"last", series.Last()},
            {"lastLine", series.LastLine()},
            {"interval",
             {{"median", rhythm.Median},
              {"low", rhythm.Low},
              {"high", rhythm.High},
              {"shortest", counts.Shortest()},
              {"longest", counts.Longest()},
              {"exact", counts.IsExact()},
              {"steady", rhythm.IsSteady}}},
            {"gaps", GapsToJson(series, rhythm)},
            {"rowsPerTime", series.GetSharedTimes().RowsEach},
            {"rollOvers", series.RollOvers()},
            {"doubtfulRollOvers", PlacesToJson(series.DoubtfulRollOvers())},
            {"dateOrder", {{"state", NameOf(series.Dates().State())}, {"line", series.Dates().Line()}}}};
}

Json FindingsToJson(const std::vector<check::Finding>& findings) {
    Json list = Json::array();
    for (const check::Finding& finding : findings) {
        list.push_back({{"kind", finding.Kind},
                        {"fault", finding.IsFault},
                        {"text", finding.Text},
                        {"remedy", finding.Remedy}});
    }
    return list;
}

Json RejectsToJson(const RejectsNote& rejects) {
    if (rejects.File.empty() || !rejects.Failure.empty()) return nullptr;
    return {{"file", Utf16ToUtf8(PathFromNative(rejects.File))}, {"rows", rejects.Rows}};
}

}  // namespace

void WriteCheckJson(std::ostream& out, const std::string& file, const check::CheckResult& result,
                    const std::vector<check::Finding>& findings, const RejectsNote& rejects) {
    Json document = {{"file", Utf16ToUtf8(PathFromNative(file))},
                     {"begun", result.Begun},
                     {"clean", IsClean(result, findings)},
                     {"findings", FindingsToJson(findings)},
                     {"lines", result.Lines},
                     {"blank", result.BlankLines}};
    document["rowsAbove"] = {{"first", result.Above.First}, {"last", result.Above.Last}};
    document["columns"] = ColumnsToJson(result);
    document["dropped"] = DroppedToJson(result.Dropped);
    document["before1990"] = PlacesToJson(result.Before1990);
    document["time"] = result.Series ? TimeToJson(*result.Series) : Json();
    document["rejects"] = RejectsToJson(rejects);
    out << document.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace kelvarin::cli
