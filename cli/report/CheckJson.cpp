#include <nlohmann/json.hpp>

#include "cli/report/CheckReport.h"
#include "cli/report/GuessReport.h"
#include "cli/report/Options.h"
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
    for (const check::FilePlace& place : places.FirstFew) first.push_back(PlaceToJson(place));
    Json json = {{"count", places.Count}, {"first", first}};
    json["last"] = places.FirstFew.empty() ? Json() : PlaceToJson(places.Last);
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
    Json reasons = Json::object();
    for (std::size_t i = 0; i < check::DropKindCount; ++i) {
        const auto kind = static_cast<check::DropKind>(i);
        if (dropped.Of(kind).Count != 0) reasons[check::NameOf(kind)] = PlacesToJson(dropped.Of(kind));
    }
    return {{"count", dropped.Count()}, {"examined", dropped.Count()}, {"reasons", reasons}};
}

// In the order of DayMonthState.
constexpr const char* DayMonthStates[] = {"unasked",   "proven", "proven",    "proven",
                                          "ambiguous", "equal",  "ambiguous", "doubtful"};

Json GapsToJson(const check::TimeSeries& series, const check::IntervalStatistics& intervals) {
    Json longest = Json::array();
    for (const check::TimeStep& step : series.LongestSteps) {
        if (step.Length() <= intervals.GapAbove) break;
        longest.push_back({{"line", step.Line}, {"from", step.From}, {"to", step.To}});
    }
    return {{"above", intervals.GapAbove}, {"count", intervals.Gaps}, {"longest", longest}};
}

Json TimeToJson(const check::TimeSeries& series) {
    if (series.Count == 0) return nullptr;
    const check::IntervalStatistics intervals = series.Intervals();
    return {
        {"rows", series.Count},
        {"first", series.First},
        {"firstLine", series.FirstLine},
        {"last", series.Last},
        {"lastLine", series.LastLine},
        {"interval",
         {{"median", intervals.Median},
          {"low", intervals.Low},
          {"high", intervals.High},
          {"shortest", intervals.Shortest},
          {"longest", intervals.Longest},
          {"exact", intervals.IsExact},
          {"steady", intervals.IsSteady}}},
        {"gaps", GapsToJson(series, intervals)},
        {"rowsPerTime", series.GetSharedTimes().RowsEach},
        {"rollOvers", series.RollOvers},
        {"doubtfulRollOvers", PlacesToJson(series.DoubtfulRollOvers)},
        {"dateOrder",
         {{"state", DayMonthStates[static_cast<int>(series.Dates.State())]}, {"line", series.Dates.Line()}}}};
}

Json FindingsToJson(const CheckReport& report) {
    Json list = Json::array();
    for (const check::Finding& finding : report.Findings) {
        list.push_back({{"kind", finding.Kind},
                        {"fault", finding.IsFault},
                        {"text", finding.Text},
                        {"remedy", RemedyText(finding.Advice)}});
    }
    return list;
}

Json RejectsToJson(const CheckReport& report) {
    if (report.RejectsFile.empty() || !report.RejectsFailure.empty()) return nullptr;
    return {{"file", Utf16ToUtf8(PathFromNative(report.RejectsFile))}, {"rows", report.RejectedRows}};
}
}  // namespace

void WriteCheckJson(std::ostream& out, const CheckReport& report) {
    const check::CheckResult& result = report.Result;
    Json document = {{"file", Utf16ToUtf8(PathFromNative(report.File))},
                     {"begun", result.Begun},
                     {"clean", check::IsClean(result, report.Findings)},
                     {"findings", FindingsToJson(report)},
                     {"lines", result.Lines},
                     {"blank", result.BlankLines}};
    document["rowsAbove"] = {{"first", result.Above.First}, {"last", result.Above.Last}};
    document["columns"] = ColumnsToJson(result);
    document["dropped"] = DroppedToJson(result.Dropped);
    document["before1990"] = PlacesToJson(result.Before1990);
    document["time"] = result.Series ? TimeToJson(*result.Series) : Json();
    document["rejects"] = RejectsToJson(report);
    if (report.Guess != nullptr) {
        document["relativeTime"] = result.Format.DateSetting == DateNone;
        document["guess"] = GuessToJson(*report.Guess);
    }
    out << document.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}
}  // namespace kelvarin::cli
