// What an import of a file would lose.
#include <optional>
#include <utility>
#include <vector>

#include "host/ImportFailure.h"
#include "host/TypeNames.h"
#include "host/check/Findings.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Failure.h"
#include "python/native/Reports.h"

namespace kelvarin::python {
namespace {
struct FileCheck {
    check::CheckResult Result;
    std::vector<check::Finding> Findings;
    std::optional<plan::Guess> Guess;
};

FileCheck Check(const ModuleLoader& module, const Request& request, CallState& state) {
    FileInWork file(module, request, state);
    FileCheck checked;
    do {
        check::CheckOptions options;
        options.OnProgress = file.Options().OnProgress;
        options.Cancel = &state.Cancel;
        options.Threads = request.Threads;
        options.Reading = file.Reading().Automatic();
        checked.Result = check::RunCheck(module, file.Path, options);
    } while (!checked.Result.Interrupted && file.Reading().TakesCopy());
    if (state.Cancel) return checked;
    const ImportFailure failure = WhyCheckFailed(checked.Result);
    if (!failure.Reason.empty()) {
        const FailureKind kind = failure.IsTableMissing ? FailureKind::FormatError : FailureKind::FileError;
        throw Failure{kind, failure.Reason, request.Path, failure.Line, {}, failure.IsTableMissing};
    }
    checked.Findings = check::Judge(checked.Result);
    if (file.Reading().Guess() != nullptr) checked.Guess = *file.Reading().Guess();
    return checked;
}

py::tuple CheckedColumnToPython(const check::ColumnCheck& column) {
    return py::make_tuple(column.Column, TextToPython(column.Name), TypeWord(column.Type), column.Samples,
                          column.Empty, column.Refused.Count);
}

py::dict DroppedToPython(const check::DroppedRows& dropped) {
    py::dict reasons;
    for (std::size_t i = 0; i < check::DropKindCount; ++i) {
        const auto kind = static_cast<check::DropKind>(i);
        if (dropped.Of(kind).Count != 0) reasons[check::NameOf(kind)] = dropped.Of(kind).Count;
    }
    return reasons;
}

// A tuple of the first and the last time and the shortest, median and longest interval in nanoseconds, and
// whether the intervals are steady; None without a row.
py::object TimesToPython(const check::CheckResult& result) {
    if (result.StoredRows() == 0) return py::none();
    const check::IntervalStatistics intervals = result.Series->Intervals();
    return py::make_tuple(result.Series->First, result.Series->Last, intervals.Shortest, intervals.Median,
                          intervals.Longest, intervals.IsSteady);
}
}  // namespace

py::dict CheckFile(const Request& request, const py::object& progress) {
    FileCheck checked;
    DoCall([&](const ModuleLoader& module, CallState& state) { checked = Check(module, request, state); },
           progress);
    py::dict result;
    result["is_clean"] = check::IsClean(checked.Result, checked.Findings);
    result["findings"] = FindingsToPython(checked.Findings);
    result["lines"] = checked.Result.Lines;
    result["rows"] = checked.Result.StoredRows();
    result["columns"] = TupleOf(checked.Result.Columns, CheckedColumnToPython);
    result["dropped"] = DroppedToPython(checked.Result.Dropped);
    result["times"] = TimesToPython(checked.Result);
    result["has_dates"] = checked.Result.Format.DateSetting == DateFromColumn &&
                          checked.Result.Format.TimeSetting == TimeFromColumn;
    result["is_relative"] = checked.Result.Format.DateSetting == DateNone;
    const std::optional<plan::Guess>& guess = checked.Guess;
    result["settings"] = guess ? SettingsToPython(guess->Settings, guess->Letters) : py::dict();
    result["assumed"] = AssumptionsToPython(guess ? guess->Assumed : std::vector<Assumption>());
    return result;
}
}  // namespace kelvarin::python
