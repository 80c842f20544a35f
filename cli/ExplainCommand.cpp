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
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Options.h"
#include "cli/report/TextLayout.h"
#include "cli/report/TextReport.h"
#include "host/HostSession.h"
#include "host/SourceFiles.h"
#include "host/explain/Explanation.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
constexpr std::size_t NameWidth = 40;

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

std::size_t ColumnsShown(const explain::Explanation& explanation) {
    return std::min(explanation.Columns.size(), explain::AnalysisRecord::MostColumns);
}

void WriteColumns(ReportStream out, const explain::Explanation& explanation) {
    if (explanation.Columns.empty()) return;
    out << ReportHeading(Phrase("columns")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    const std::size_t shown = ColumnsShown(explanation);
    for (std::size_t i = 0; i < shown; ++i) {
        const ColumnSummary& column = explanation.Columns[i];
        table.AddRow({std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      column.IsTimestamp ? Phrase("timestamp") : DataTypeInWords(column.Type),
                      column.IsTimestamp
                          ? Phrase("gives the rows their time, by the settings")
                          : explain::ReasonInWords(explain::ReasonFor(explanation.Record, i))});
    }
    table.Write(out, "    ");
    if (shown < explanation.Columns.size())
        out << "    " << Phrase("... and {} more columns", explanation.Columns.size() - shown) << "\n";
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
    if (explanation.IsAdvised()) {
        const explain::TableProposal& table = *explanation.Proposal;
        WriteLine(out, ReportLabel(Phrase("advice")),
                  Phrase("A table seems to begin in line {} (rows: {}, cells in each: {}). To take it ({}):",
                         table.Format.FirstDataLine(), table.Rows, table.Cells, explanation.ProposalGives));
        out << ReportLabel("") << OptionsText(explanation.ProposedSettings()) << "\n";
    }
    if (explanation.ReadsTimes)
        WriteLine(out, ReportLabel(Phrase("times")),
                  Phrase("no timestamp format is set; --guess-time proposes one"));
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

void WriteExplanationText(ReportStream out, const std::string& file, const explain::Explanation& explanation,
                          const guess::TimeGuess* guess) {
    out << Styled(Style::Heading, file) << "\n";
    if (guess != nullptr) WriteGuessText(out, *guess);
    WriteLine(out, ReportLabel(Phrase("taken")), FormatInWords(explanation.Format));
    TerminalText label = ReportLabel(Phrase("why"));
    for (const std::string& reason : explain::FormatReasons(explanation)) {
        WriteLine(out, label, reason);
        label = ReportLabel("");
    }
    const std::string second = explain::RunnerUp(explanation.Record);
    if (!second.empty()) WriteLine(out, ReportLabel(Phrase("runner-up")), second);
    WriteLine(out, ReportLabel(Phrase("analysed")), explain::RowsRead(explanation.Record));
    WriteColumns(out, explanation);
    WriteWarnings(out, explanation);
    WriteAdvice(out, explanation);
}

void WriteExplanationJson(std::ostream& out, const std::string& file, const explain::Explanation& explanation,
                          const guess::TimeGuess* guess) {
    Json columns = Json::array();
    for (std::size_t i = 0; i < ColumnsShown(explanation); ++i) columns.push_back(ColumnJson(explanation, i));
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
                     {"columnCount", explanation.Columns.size()},
                     {"warnings", warnings},
                     {"proposal", ProposalJson(explanation)}};
    if (guess != nullptr) document["guess"] = GuessToJson(*guess);
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
    // The module's decisions about a copy say nothing of the file.
    if (reading.Automatic()->Copy() != nullptr && !common.Json) {
        WriteFormatText(std::cout, file, session.Filter(), *reading.Automatic());
        WriteGuessText(std::cout, *reading.Guess());
        return reading.WithComplaints(ExitDone);
    }
    const explain::Explanation explanation =
        explain::Explain(module, reading.Automatic()->Path(), session.Filter(), record);
    if (common.Json) {
        WriteExplanationJson(std::cout, file, explanation, reading.Guess());
    } else {
        WriteExplanationText(std::cout, file, explanation, reading.Guess());
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
