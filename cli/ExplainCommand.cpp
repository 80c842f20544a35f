#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/SharedPlan.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/AssumptionsReport.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Options.h"
#include "cli/report/TextLayout.h"
#include "cli/report/TextReport.h"
#include "host/HostSession.h"
#include "host/SourceFiles.h"
#include "host/explain/Explanation.h"
#include "host/language/Phrase.h"
#include "host/plan/CellsInWords.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
// A line of the report, or several where the terminal is narrower.
void WriteLine(ReportStream out, const TerminalText& label, const std::string& text) {
    const std::size_t indent = TextWidth(ReportLabel("").Bytes);
    const std::size_t width = OutputWidth();
    std::size_t column = indent;
    out << label;
    std::istringstream words(MakeVisible(text));
    for (std::string word; std::getline(words, word, ' ');) {
        const std::size_t needed = TextWidth(word) + (column == indent ? 0 : 1);
        if (column != indent && width > indent && column + needed > width) {
            out << "\n" << ReportLabel("");
            column = indent;
        }
        out << (column == indent ? "" : " ") << word;
        column += needed;
    }
    out << "\n";
}

// Why each column is what it is: by the plan that is followed, or by the module's own analysis.
class ColumnReasons {
  public:
    // `followed` is null if there is no plan. Both outlive the object.
    ColumnReasons(const explain::Explanation& explanation, const plan::ReadingPlan* followed)
        : All(explanation), Plan(followed) {}

    // Of a copy, a column more than the file has is that of its times.
    std::size_t Shown() const {
        const std::size_t most = Plan == nullptr ? All.Columns.size() : Plan->Columns.size();
        return std::min({All.Columns.size(), most, explain::AnalysisRecord::MostColumns});
    }
    std::size_t Count() const {
        return Plan == nullptr ? All.Columns.size() : std::min(All.Columns.size(), Plan->Columns.size());
    }

    bool IsTime(std::size_t column) const {
        return All.Columns[column].IsTimestamp || (Plan != nullptr && Plan->Columns[column].IsTime);
    }

    std::string InWords(std::size_t column) const {
        if (Plan != nullptr) return plan::CellsInWords(Plan->Columns[column].Cells);
        return explain::ReasonInWords(explain::ReasonFor(All.Record, column));
    }

  private:
    const explain::Explanation& All;
    const plan::ReadingPlan* const Plan;
};

void WriteColumns(ReportStream out, const explain::Explanation& explanation, const ColumnReasons& reasons) {
    if (explanation.Columns.empty()) return;
    out << ReportHeading(Phrase("columns")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    for (std::size_t i = 0; i < reasons.Shown(); ++i) {
        const ColumnSummary& column = explanation.Columns[i];
        table.AddRow(
            {std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
             reasons.IsTime(i) ? Phrase("timestamp") : DataTypeInWords(column.Type),
             reasons.IsTime(i) ? Phrase("gives the rows their time, by the settings") : reasons.InWords(i)});
    }
    table.Write(out, "    ");
    if (reasons.Shown() < reasons.Count())
        out << "    " << Phrase("... and {} more columns", reasons.Count() - reasons.Shown()) << "\n";
}

void WriteWarnings(ReportStream out, const explain::Explanation& explanation) {
    for (const explain::Warning& warning : explanation.Warnings) {
        WriteLine(out, ReportLabel(Phrase("warning")), warning.Text);
        // Settings alone are those of the advice below. No line end may come between options to paste.
        if (!warning.Remedy.Text.empty())
            out << ReportLabel("") << Phrase("Remedy: {}", RemedyText(warning.Remedy)) << "\n";
    }
}

void WriteAdvice(ReportStream out, const explain::Explanation& explanation) {
    if (!explanation.IsAdvised() && !explanation.NeedsCopy) return;
    WriteAssumptions(out, Phrase("advice"), explanation.Assumed);
    out << ReportLabel("")
        << (explanation.IsAdvised()
                ? Phrase("as options: {}", OptionsText(explanation.Advised, explanation.AdvisedLetters))
                : Phrase("`kelvarin-import prepare FILE` writes a copy that is read so"))
        << "\n";
}

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

Json ColumnJson(const explain::Explanation& explanation, const ColumnReasons& reasons, std::size_t column) {
    const explain::ColumnReason reason = explain::ReasonFor(explanation.Record, column);
    Json fell = Json::object();
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        const explain::CellGroup& end = reason.Fell[static_cast<std::size_t>(type - 1)];
        if (end.Count == 0) continue;
        fell[std::to_string(type)] = {{"line", end.FirstLine}, {"text", Utf16ToUtf8(end.FirstText)}};
    }
    return {{"index", column},
            {"name", Utf16ToUtf8(explanation.Columns[column].Name)},
            {"timestamp", reasons.IsTime(column)},
            {"type", explanation.Columns[column].Type},
            {"why", reasons.InWords(column)},
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
            {"advised", explanation.IsOtherTable && explanation.IsAdvised()},
            {"options",
             explanation.IsOtherTable ? OptionsText(explanation.Advised, explanation.AdvisedLetters) : ""}};
}

void WriteExplanationText(ReportStream out, const std::string& file, const explain::Explanation& explanation,
                          FileReading& reading) {
    const plan::ReadingPlan* const plan = reading.Automatic()->Plan();
    out << Styled(Style::Heading, file) << "\n";
    if (reading.Guess() != nullptr) WriteGuessText(out, *reading.Guess());
    if (plan == nullptr) {
        WriteLine(out, ReportLabel(Phrase("taken")), FormatInWords(explanation.Format));
        TerminalText label = ReportLabel(Phrase("why"));
        for (const std::string& reason : explain::FormatReasons(explanation)) {
            WriteLine(out, label, reason);
            label = ReportLabel("");
        }
        const std::string second = explain::RunnerUp(explanation.Record);
        if (!second.empty()) WriteLine(out, ReportLabel(Phrase("runner-up")), second);
        WriteLine(out, ReportLabel(Phrase("analysed")), explain::RowsRead(explanation.Record));
    }
    WriteColumns(out, explanation, ColumnReasons(explanation, plan));
    WriteWarnings(out, explanation);
    WriteAdvice(out, explanation);
}

void WriteExplanationJson(std::ostream& out, const std::string& file, const explain::Explanation& explanation,
                          FileReading& reading) {
    const ColumnReasons reasons(explanation, reading.Automatic()->Plan());
    Json columns = Json::array();
    for (std::size_t i = 0; i < reasons.Shown(); ++i) columns.push_back(ColumnJson(explanation, reasons, i));
    Json warnings = Json::array();
    for (const explain::Warning& warning : explanation.Warnings) {
        warnings.push_back(
            {{"kind", warning.Kind}, {"text", warning.Text}, {"remedy", RemedyText(warning.Remedy)}});
    }
    Json document = {{"file", Utf16ToUtf8(PathFromNative(file))},
                     {"taken", FormatInWords(explanation.Format)},
                     {"why", explain::FormatReasons(explanation)},
                     {"runnerUp", explain::RunnerUp(explanation.Record)},
                     {"detection", DetectionJson(explanation.Record)},
                     {"table", TableJson(explanation)},
                     {"columns", columns},
                     {"columnCount", reasons.Count()},
                     {"warnings", warnings},
                     {"proposal", ProposalJson(explanation)}};
    if (reading.Guess() != nullptr) document["guess"] = GuessToJson(*reading.Guess());
    out << document.dump() << "\n";
}

int ExplainFile(const ModuleLoader& module, const CommonOptions& common, const ReadingOptions& options,
                const std::string& file) {
    const std::u16string path = PathFromNative(file);
    explain::AnalysisRecord record;
    FileReading reading(module, file, common, options);
    if (!reading.WhyUnlike().empty()) return Fail(file, reading.WhyUnlike());
    RunOptions run;
    run.Reading = reading.Automatic();
    HostSession session(module, path, std::move(run));
    record.ListenTo(session.Filter());
    if (!session.Filter().AnalyzeFile()) return Fail(file, WhyUnreadable(session.Filter(), path));
    const plan::ReadingPlan* const plan = reading.Automatic()->Plan();
    explain::Explanation explanation = plan == nullptr
                                           ? explain::Explain(module, path, session.Filter(), record)
                                           : explain::ExplainPlanned(*plan, session.Filter(), record);
    // The module's decisions about a copy say nothing of the file.
    if (reading.Automatic()->Copy() != nullptr) explanation.Warnings.clear();
    if (common.Json) {
        WriteExplanationJson(std::cout, file, explanation, reading);
    } else {
        WriteExplanationText(std::cout, file, explanation, reading);
    }
    return reading.WithComplaints(ExitDone);
}
}  // namespace

void AddExplainCommand(CommandLine& line) {
    const auto options = std::make_shared<ReadingOptions>();
    const auto many = std::make_shared<ManyFiles>();
    const auto shared = std::make_shared<SharedPlan>();
    CLI::App& command =
        line.Add("explain", Phrase("Why a file is read as it is, what surprises about it, and what to set"),
                 [options, many, shared](const ModuleLoader& module, const CommonOptions& common) {
                     const int status = shared->Prepare(module, common, *many, *options);
                     if (status != ExitDone) return status;
                     return many->Run(common.Files, Phrase("explained"), [&](const std::string& file) {
                         return ExplainFile(module, common, *options, file);
                     });
                 });
    AddReadingOptions(command, *options);
    shared->AddOption(command);
    many->AddOptions(command);
    AddExamples(command,
                {"kelvarin-import explain data.csv", "kelvarin-import explain --json *.csv >reasons.json"});
}
}  // namespace kelvarin::cli
