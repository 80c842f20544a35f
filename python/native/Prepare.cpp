// A clean copy of a file.
#include <optional>
#include <utility>
#include <vector>

#include "host/SourceFiles.h"
#include "host/TypeNames.h"
#include "host/language/Phrase.h"
#include "host/plan/Preparation.h"
#include "host/plan/Sureness.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Failure.h"
#include "python/native/Reports.h"

namespace kelvarin::python {
namespace {
// The words for where the times of a copy come from, by the values of plan::CopyTimes.
constexpr const char* TimesWords[] = {"local", "utc", "elapsed"};

void RefusePlace(const std::string& path, const std::string& copy, bool force) {
    if (!FindOverwriting({path}, {copy}).Output.empty())
        throw Failure{FailureKind::CopyError, Phrase("this file is read, and would be overwritten"), copy};
    if (!force && IdentityOf(PathFromNative(copy)))
        throw Failure{FailureKind::CopyError, Phrase("the file exists already"), copy, 0, {"force=True"}};
}

struct FileCopies {
    plan::Preparation Preparation;
    std::vector<plan::PreparedCopy> Copies;
};

FileCopies Prepare(const std::string& path, const std::string& copy, bool force, CallState& state) {
    FileCopies made{plan::FindPreparation(PathFromNative(path)), {}};
    const ImportFailure& failure = made.Preparation.Failure;
    if (!failure.Reason.empty()) {
        const FailureKind kind = made.Preparation.Plan || failure.IsTableMissing ? FailureKind::FormatError
                                                                                 : FailureKind::FileError;
        throw Failure{kind, failure.Reason, path, failure.Line, {}, failure.IsTableMissing};
    }
    made.Copies = CopiesAt(made.Preparation, copy, ".prepared.csv");
    for (const plan::PreparedCopy& one : made.Copies) RefusePlace(path, one.Path, force);
    plan::CopyOptions options;
    options.Cancel = &state.Cancel;
    options.OnProgress = [&state](std::uint32_t percent) { state.Percent = percent; };
    WriteCopies(made.Preparation, made.Copies, options);
    for (const plan::PreparedCopy& one : made.Copies) {
        if (!one.Result.Failure.empty()) throw Failure{FailureKind::CopyError, one.Result.Failure, one.Path};
    }
    return made;
}

py::dict LeftOutToPython(const plan::CopyResult& result) {
    py::dict counts;
    const auto add = [&](const char* kind, std::uint64_t count) {
        if (count != 0) counts[kind] = count;
    };
    add("blank", result.Rows.Blank.Count);
    add("headers", result.Rows.Headers.Count);
    add("otherTable", result.Rows.OtherTable.Count);
    add("withoutTime", result.Rows.Timeless.Count);
    add("totals", result.Rows.Totals.Count);
    add("cells", result.Changes.ExtraCells);
    return counts;
}

py::tuple CopyToPython(const plan::PreparedCopy& copy) {
    const plan::CopyResult& result = copy.Result;
    return py::make_tuple(PathToPython(copy.Path), TextToPython(copy.Device), result.Rows.Written,
                          result.Sorted, LeftOutToPython(result), result.Changes.Values,
                          result.Changes.Missing);
}

py::list ColumnsToPython(const FileCopies& made) {
    py::list columns;
    const std::vector<plan::PlannedColumn>& all = made.Preparation.Plan->Columns;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].IsTime) continue;
        const auto type = static_cast<std::size_t>(made.Copies.front().Result.Types[i]);
        columns.append(
            py::make_tuple(i + 1, TextToPython(all[i].Name), TextToPython(all[i].Unit), PlanTypeWords[type]));
    }
    return columns;
}
}  // namespace

py::dict PrepareFile(const std::string& path, const std::string& copy, bool force,
                     const py::object& progress) {
    std::optional<FileCopies> made;
    DoCall([&](const ModuleLoader&, CallState& state) { made = Prepare(path, copy, force, state); },
           progress);
    py::dict result;
    result["copies"] = TupleOf(made->Copies, CopyToPython);
    result["columns"] = ColumnsToPython(*made);
    result["times"] = TimesWords[static_cast<std::size_t>(made->Copies.front().Result.Times)];
    result["assumed"] = AssumptionsToPython(plan::Assumptions(*made->Preparation.Plan));
    return result;
}
}  // namespace kelvarin::python
