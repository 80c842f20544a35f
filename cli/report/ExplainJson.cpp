#include <nlohmann/json.hpp>

#include "cli/report/ExplainReport.h"
#include "cli/report/Options.h"
#include "host/Words.h"
#include "host/explain/ColumnReason.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

Json DetectionJson(const explain::AnalysisRecord& record) {
    Json lines = Json::array();
    for (const explain::SeenLine& line : record.Counted) {
        Json counts = Json::array();
        Json starts = Json::array();
        for (const SeparatorRun& run : line.Runs) {
            counts.push_back(run.LastCount);
            starts.push_back(run.Start);
        }
        lines.push_back({{"line", line.Line}, {"counts", counts}, {"runStarts", starts}});
    }
    Json tested = Json::array();
    for (const TestedLine& line : record.Tested) {
        tested.push_back({{"line", line.Line},
                          {"cells", line.Cells},
                          {"numbers", line.Numbers},
                          {"needed", line.Needed},
                          {"isData", line.IsData()}});
    }
    return {{"separator", record.Separator},
            {"runStart", record.RunStart},
            {"firstLine", record.DetectedFirstLine},
            {"header", record.DetectedHeader},
            {"lines", lines},
            {"tested", tested}};
}

Json GroupJson(const explain::CellGroup& group) {
    if (group.Count == 0) return nullptr;
    return {{"count", group.Count}, {"line", group.FirstLine}, {"text", Utf16ToUtf8(group.FirstText)}};
}

Json ColumnJson(const explain::Explanation& explanation, std::size_t column) {
    const explain::ColumnReason reason = explain::ReasonFor(explanation.Record, column);
    Json fell = Json::object();
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        const explain::CellGroup& end = reason.Fell[static_cast<std::size_t>(type - 1)];
        if (end.Count == 0) continue;
        fell[std::to_string(type)] = {{"line", end.FirstLine}, {"text", Utf16ToUtf8(end.FirstText)}};
    }
    return {{"index", column},
            {"name", Utf16ToUtf8(explanation.Columns[column].Name)},
            {"timestamp", explanation.Columns[column].IsTimestamp},
            {"type", reason.Type},
            {"why", explain::ReasonInWords(reason)},
            {"cells", reason.Cells},
            {"empty", GroupJson(reason.Empty)},
            {"mostType", reason.MostType},
            {"most", reason.Most},
            {"others", GroupJson(reason.Others)},
            {"fell", fell}};
}

Json TableJson(const explain::Explanation& explanation) {
    const explain::AnalysisRecord& record = explanation.Record;
    constexpr const char* Ends[] = {"end of file", "empty line", "enough rows"};
    return {{"separator", explanation.Format.Separator},
            {"firstLine", record.FirstLine},
            {"header", record.Header},
            {"rows", record.DataRows()},
            {"end", Ends[static_cast<int>(record.End)]},
            {"endLine", record.EndLine}};
}

Json ProposalJson(const explain::Explanation& explanation) {
    if (!explanation.Proposal) return nullptr;
    const explain::TableProposal& table = *explanation.Proposal;
    return {{"separator", table.Format.Separator},
            {"firstLine", table.Format.FirstLine},
            {"header", table.Format.Header},
            {"firstDataLine", table.Format.FirstDataLine()},
            {"rows", table.Rows},
            {"cells", table.Cells},
            {"namesLine", table.NamesLine},
            {"names", Utf16ToUtf8(table.Names)},
            {"advised", explanation.IsAdvised()},
            {"options", explanation.IsAdvised() ? OptionsText(explanation.ProposedSettings()) : ""}};
}

}  // namespace

void WriteExplanationJson(std::ostream& out, const std::string& file,
                          const explain::Explanation& explanation) {
    Json columns = Json::array();
    const std::size_t shown = std::min(explanation.Columns.size(), explain::AnalysisRecord::MostColumns);
    for (std::size_t i = 0; i < shown; ++i) columns.push_back(ColumnJson(explanation, i));
    Json warnings = Json::array();
    for (const explain::Warning& warning : explanation.Warnings) {
        warnings.push_back(
            {{"kind", warning.Kind}, {"text", warning.Text}, {"remedy", RemedyText(warning.Remedy)}});
    }
    const Json document = {{"file", Utf16ToUtf8(PathFromNative(file))},
                           {"taken", FormatInWords(explanation.Format)},
                           {"why", explain::FormatReasons(explanation)},
                           {"runnerUp", explain::RunnerUp(explanation.Record)},
                           {"detection", DetectionJson(explanation.Record)},
                           {"table", TableJson(explanation)},
                           {"columns", columns},
                           {"columnCount", explanation.Columns.size()},
                           {"warnings", warnings},
                           {"proposal", ProposalJson(explanation)}};
    out << document.dump() << "\n";
}

}  // namespace kelvarin::cli
