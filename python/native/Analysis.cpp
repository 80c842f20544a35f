// What is found of a file without a run: its columns, and why it is read so.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "host/SourceFiles.h"
#include "host/TypeNames.h"
#include "host/Words.h"
#include "host/explain/Explanation.h"
#include "host/plan/CellsInWords.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Failure.h"
#include "python/native/Reports.h"

namespace kelvarin::python {
namespace {
// What an analysis leaves, with the plan's share.
struct FileAnalysis {
    Reading Format;
    std::vector<ColumnSummary> Columns;
    std::optional<plan::Guess> Guess;
    bool IsCopied = false;
};

[[noreturn]] void RefuseUnread(const Request& request, const FileInWork& file, const HostSession& session) {
    throw Failure{FailureKind::FileError, WhyUnreadable(session.Filter(), file.Path), request.Path};
}

FileAnalysis Analyze(const ModuleLoader& module, const Request& request, CallState& state) {
    FileInWork file(module, request, state);
    HostSession session(module, file.Path, file.Options());
    if (!session.Filter().AnalyzeFile()) RefuseUnread(request, file, session);
    FileAnalysis analysis{ReadingOf(session.Filter()), SummarizeColumns(session.Filter()), {}, false};
    if (file.Reading().Guess() != nullptr) analysis.Guess = *file.Reading().Guess();
    if (const plan::ReadingPlan* const plan = file.Reading().Automatic()->Plan()) {
        // The summaries have the units that cells name.
        for (ColumnSummary& column : analysis.Columns) {
            const auto index = static_cast<std::size_t>(column.Index);
            if (index < plan->Columns.size()) column.Unit = plan->Columns[index].Unit;
        }
    }
    analysis.IsCopied = file.Reading().Automatic()->Copy() != nullptr;
    return analysis;
}

py::tuple ColumnToPython(const ColumnSummary& column) {
    return py::make_tuple(column.Index + 1, TextToPython(column.Name), TextToPython(column.Unit),
                          TypeWord(column.Type), column.IsTimestamp, column.IsSignal);
}

void AddGuess(py::dict& result, const std::optional<plan::Guess>& guess) {
    result["settings"] = guess ? SettingsToPython(guess->Settings, guess->Letters) : py::dict();
    result["assumed"] = AssumptionsToPython(guess ? guess->Assumed : std::vector<Assumption>());
}

// Of an explained column, why it is what it is.
struct ExplainedColumn {
    ColumnSummary Summary;
    bool IsTime = false;
    std::string Why;
};

struct FileExplanation {
    std::vector<ExplainedColumn> Columns;
    std::string Taken;
    std::vector<std::string> Why;
    std::string RunnerUp;
    std::vector<explain::Warning> Warnings;
    SettingList Advised;
    std::u16string AdvisedLetters;
    bool NeedsCopy = false;
    std::optional<plan::Guess> Guess;
};

std::vector<ExplainedColumn> ExplainColumns(const explain::Explanation& all, const plan::ReadingPlan* plan) {
    // Of a copy, a column more than the file has is that of its times.
    const std::size_t most = plan == nullptr ? explain::AnalysisRecord::MostColumns : plan->Columns.size();
    std::vector<ExplainedColumn> columns;
    for (std::size_t i = 0; i < std::min(all.Columns.size(), most); ++i) {
        const bool isPlanned = plan != nullptr;
        columns.push_back({all.Columns[i],
                           all.Columns[i].IsTimestamp || (isPlanned && plan->Columns[i].IsTime),
                           isPlanned ? plan::CellsInWords(plan->Columns[i].Cells)
                                     : explain::ReasonInWords(explain::ReasonFor(all.Record, i))});
    }
    return columns;
}

FileExplanation Explain(const ModuleLoader& module, const Request& request, CallState& state) {
    explain::AnalysisRecord record;
    FileInWork file(module, request, state);
    HostSession session(module, file.Path, file.Options());
    record.ListenTo(session.Filter());
    if (!session.Filter().AnalyzeFile()) RefuseUnread(request, file, session);
    const plan::ReadingPlan* const plan = file.Reading().Automatic()->Plan();
    explain::Explanation all = plan == nullptr ? explain::Explain(module, file.Path, session.Filter(), record)
                                               : explain::ExplainPlanned(*plan, session.Filter(), record);
    // The module's decisions about a copy say nothing of the file.
    if (file.Reading().Automatic()->Copy() != nullptr) all.Warnings.clear();
    FileExplanation explanation{ExplainColumns(all, plan),
                                FormatInWords(all.Format),
                                {},
                                {},
                                all.Warnings,
                                all.Advised,
                                all.AdvisedLetters,
                                all.NeedsCopy,
                                {}};
    if (plan == nullptr) {
        explanation.Why = explain::FormatReasons(all);
        explanation.RunnerUp = explain::RunnerUp(record);
    }
    if (file.Reading().Guess() != nullptr) explanation.Guess = *file.Reading().Guess();
    return explanation;
}
}  // namespace

py::dict AnalyzeFile(const Request& request) {
    FileAnalysis analysis;
    DoCall([&](const ModuleLoader& module, CallState& state) { analysis = Analyze(module, request, state); },
           py::none());
    py::dict result;
    result["columns"] = TupleOf(analysis.Columns, ColumnToPython);
    result["format"] = TextToPython(FormatInWords(analysis.Format));
    result["header_line"] = analysis.Format.HeaderLine;
    result["first_line"] = analysis.Format.FirstDataLine;
    result["timestamp_format"] = TextToPython(analysis.Format.TimestampFormat);
    result["needs_copy"] = analysis.IsCopied;
    AddGuess(result, analysis.Guess);
    return result;
}

py::dict ExplainFile(const Request& request) {
    FileExplanation all;
    DoCall([&](const ModuleLoader& module, CallState& state) { all = Explain(module, request, state); },
           py::none());
    py::dict result;
    result["columns"] = TupleOf(all.Columns, [](const ExplainedColumn& column) {
        return py::make_tuple(column.Summary.Index + 1, TextToPython(column.Summary.Name),
                              TypeWord(column.Summary.Type), column.IsTime, TextToPython(column.Why));
    });
    result["format"] = TextToPython(all.Taken);
    result["why"] = TupleOf(all.Why, [](const std::string& text) { return TextToPython(text); });
    result["runner_up"] = TextToPython(all.RunnerUp);
    result["warnings"] = TupleOf(all.Warnings, [](const explain::Warning& warning) {
        return py::make_tuple(warning.Kind, TextToPython(warning.Text), RemedyToPython(warning.Remedy));
    });
    result["advised"] = SettingsToPython(all.Advised, all.AdvisedLetters);
    result["needs_copy"] = all.NeedsCopy;
    AddGuess(result, all.Guess);
    return result;
}
}  // namespace kelvarin::python
