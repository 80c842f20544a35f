#include "cli/report/PrepareReport.h"

#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/report/AssumptionsReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextLayout.h"
#include "host/TypeNames.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "host/plan/CopyInWords.h"
#include "host/plan/Sureness.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {

// The words of the JSON document, by the values of the enumeration.
constexpr const char* TimesWords[] = {"local", "utc", "elapsed"};

// The columns of the file that the times come from, from 1.
std::vector<std::size_t> TimeColumns(const plan::ReadingPlan& plan) {
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        if (plan.Columns[i].IsTime) columns.push_back(i + 1);
    }
    return columns;
}

template <class Number>
std::string Listed(const std::vector<Number>& numbers) {
    std::string text;
    for (const Number number : numbers) text += (text.empty() ? "" : ", ") + std::to_string(number);
    return text;
}

std::string SourceOfTimes(const plan::ReadingPlan& plan) {
    const std::vector<std::size_t> columns = TimeColumns(plan);
    if (columns.empty()) return Phrase("the interval of the rows");
    return columns.size() == 1 ? Phrase("column {}", columns.front()) : Phrase("columns {}", Listed(columns));
}

std::string TimesInWords(const plan::CopyResult& result) {
    if (result.Times == plan::CopyTimes::Local) return Phrase("as written, without a zone");
    if (result.Times == plan::CopyTimes::Moments) return Phrase("seconds since 1970 in UTC");
    if (result.Shift == 0) return Phrase("elapsed seconds");
    return Phrase("elapsed seconds, {} added to all", SpanInWords(result.Shift));
}

// A line of the report for each text, the first with the label.
void WriteLines(ReportStream& out, const std::string& label, const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
        out << ReportLabel(i == 0 ? label : "") << texts[i] << "\n";
}

void WriteChanges(ReportStream& out, const plan::CopyResult& result) {
    std::vector<std::string> leftOut;
    if (result.Rows.Blank.Count != 0)
        leftOut.push_back(Phrase("blank lines: {}", plan::LinesInWords(result.Rows.Blank)));
    if (result.Rows.Headers.Count != 0)
        leftOut.push_back(Phrase("header lines again: {}", plan::LinesInWords(result.Rows.Headers)));
    if (result.Rows.Timeless.Count != 0)
        leftOut.push_back(Phrase("lines without a time: {}", plan::LinesInWords(result.Rows.Timeless)));
    if (result.Rows.Totals.Count != 0)
        leftOut.push_back(
            Phrase("a last row that sums up the others: {}", plan::LinesInWords(result.Rows.Totals)));
    if (result.Rows.OtherTable.Count != 0)
        leftOut.push_back(Phrase("lines of another table: {}", plan::LinesInWords(result.Rows.OtherTable)));
    if (result.Changes.ExtraCells != 0)
        leftOut.push_back(Phrase("cells to the right of the table: {}", result.Changes.ExtraCells));
    WriteLines(out, Phrase("left out"), leftOut);
    std::vector<std::string> rewritten;
    if (result.Changes.Values != 0)
        rewritten.push_back(Phrase("numbers and truth values: {}", result.Changes.Values));
    if (result.Changes.Missing != 0)
        rewritten.push_back(
            Phrase("markers of missing values that became empty cells: {}", result.Changes.Missing));
    WriteLines(out, Phrase("changed"), rewritten);
}

void WriteColumns(ReportStream& out, const plan::ReadingPlan& plan) {
    out << ReportHeading(Phrase("columns")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left});
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        const plan::PlannedColumn& column = plan.Columns[i];
        if (column.IsTime) continue;
        table.AddRow({std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      column.Unit.empty() ? "" : "[" + Utf16ToUtf8(column.Unit) + "]"});
    }
    table.Write(out, "    ");
}

Json LinesToJson(const plan::LinesLeftOut& lines) {
    return {{"count", lines.Count}, {"lines", lines.First}};
}

Json ColumnsToJson(const PrepareReport& report) {
    Json columns = Json::array();
    for (std::size_t i = 0; i < report.Plan->Columns.size(); ++i) {
        const plan::PlannedColumn& column = report.Plan->Columns[i];
        if (column.IsTime) continue;
        const plan::ColumnType type = report.Copies.front().Result.Types[i];
        columns.push_back({{"column", i + 1},
                           {"name", Utf16ToUtf8(column.Name)},
                           {"unit", Utf16ToUtf8(column.Unit)},
                           {"type", PlanTypeWords[static_cast<std::size_t>(type)]}});
    }
    return columns;
}

Json CopyToJson(const PreparedCopy& copy) {
    const plan::CopyResult& result = copy.Result;
    return {{"copy", PrintableName(copy.Path)},
            {"device", copy.Device},
            {"shift", result.Shift},
            {"rows", result.Rows.Written},
            {"sorted", result.Sorted},
            {"leftOut",
             {{"blank", LinesToJson(result.Rows.Blank)},
              {"headers", LinesToJson(result.Rows.Headers)},
              {"otherTable", LinesToJson(result.Rows.OtherTable)},
              {"withoutTime", LinesToJson(result.Rows.Timeless)},
              {"totals", LinesToJson(result.Rows.Totals)},
              {"cells", result.Changes.ExtraCells}}},
            {"rewritten", {{"values", result.Changes.Values}, {"missing", result.Changes.Missing}}}};
}

void WriteCopy(ReportStream& out, const PreparedCopy& copy) {
    out << ReportLabel(Phrase("copy")) << copy.Path << "\n";
    const std::string rows = RowsInWords(copy.Result.Rows.Written);
    out << ReportLabel(Phrase("content"))
        << (copy.Result.Sorted ? Phrase("{}, sorted by time", rows)
                               : Phrase("{}, in the order of their times already", rows))
        << "\n";
    WriteChanges(out, copy.Result);
}
}  // namespace

void WritePrepareText(ReportStream out, const PrepareReport& report) {
    if (report.Copies.empty()) return;
    out << ReportHeading(report.File) << "\n"
        << ReportLabel(Phrase("times")) << SourceOfTimes(*report.Plan) << ": "
        << TimesInWords(report.Copies.front().Result) << "\n";
    WriteAssumptions(out, Phrase("assumed"), plan::Assumptions(*report.Plan));
    if (report.DeviceColumn != 0)
        out << ReportLabel(Phrase("devices"))
            << Phrase("{}, told apart by column {}; each has its own copy", report.Copies.size(),
                      report.DeviceColumn)
            << "\n";
    for (const PreparedCopy& copy : report.Copies) WriteCopy(out, copy);
    WriteColumns(out, *report.Plan);
}

void WritePrepareJson(std::ostream& out, const PrepareReport& report) {
    Json document = {
        {"file", PrintableName(report.File)}, {"written", !report.Copies.empty()}, {"reason", report.Reason}};
    if (!report.Copies.empty()) {
        const plan::CopyTimes kind = report.Copies.front().Result.Times;
        document["times"] = {{"kind", TimesWords[static_cast<std::size_t>(kind)]},
                             {"columns", TimeColumns(*report.Plan)}};
        document["assumed"] = AssumptionsToJson(plan::Assumptions(*report.Plan));
        document["deviceColumn"] = report.DeviceColumn == 0 ? Json() : Json(report.DeviceColumn);
        document["copies"] = Json::array();
        for (const PreparedCopy& copy : report.Copies) document["copies"].push_back(CopyToJson(copy));
        document["columns"] = ColumnsToJson(report);
    }
    WriteDocument(out, document);
}
}  // namespace kelvarin::cli
