#include "host/plan/CopyRun.h"

#include <algorithm>
#include <utility>

#include "host/language/Phrase.h"

namespace kelvarin::plan {
namespace {
std::vector<ColumnType> TypesOf(const ReadingPlan& plan) {
    std::vector<ColumnType> types;
    for (const PlannedColumn& column : plan.Columns) types.push_back(column.Type);
    return types;
}
}  // namespace

PendingCopy::PendingCopy(const ReadingPlan& plan, const CopyOptions& options, const DeviceRows* only,
                         CopyTarget& target)
    : Plan(plan),
      Options(options),
      Only(only),
      Target(target),
      Types(TypesOf(plan)),
      Sorts(plan.Times->Trial.Falling > 0) {}

void PendingCopy::Begin() {
    Pass.emplace(Plan, Options, Only, Types, Sorts, Target);
    Pass->Begin();
}

bool PendingCopy::Take(const CopyLine& line) {
    if (Pass->Take(line)) return true;
    Sorts = true;
    return false;
}

void PendingCopy::End() {
    Pass->End();
    Complete = AreTypesFinal || !Pass->HasWrongTypes();
    Result = Pass->TakeResult();
    Types = Result.Types;
    AreTypesFinal = true;
}

CopyResult PendingCopy::Finish() {
    if (Result.Rows.Written == 0) {
        Result.Failure = Phrase("no line of the table has a time");
    } else {
        Target.Finish();
    }
    return std::move(Result);
}

CopyRun::CopyRun(const std::u16string& source, const ReadingPlan& plan, const CopyOptions& options)
    : Source(source), Plan(plan), Options(options) {}

void CopyRun::Add(const DeviceRows* only, CopyTarget& target) {
    Copies.emplace_back(Plan, Options, only, target);
}

std::vector<CopyResult> CopyRun::Make() {
    const auto isComplete = [](const PendingCopy& copy) { return copy.IsComplete(); };
    while (!std::all_of(Copies.begin(), Copies.end(), isComplete)) {
        ReadOnce();
        if (!Options.IsCanceled()) continue;
        Results.emplace_back().Interrupted = true;
        return std::move(Results);
    }
    for (PendingCopy& copy : Copies) {
        Results.push_back(copy.Finish());
        if (!Results.back().Failure.empty()) return std::move(Results);
    }
    ShowProgress(1);
    return std::move(Results);
}

std::vector<CopyResult> CopyRun::FailedFor(const std::string& failure) {
    Results.emplace_back().Failure = failure;
    return std::move(Results);
}

// Reads the file for all copies that aren't complete.
void CopyRun::ReadOnce() {
    CopyReader reader(Source, Plan);
    std::vector<PendingCopy*> taking;
    for (PendingCopy& copy : Copies) {
        if (copy.IsComplete()) continue;
        copy.Begin();
        taking.push_back(&copy);
    }
    CopyLine line;
    while (!taking.empty() && reader.Next(line)) {
        std::erase_if(taking, [&line](PendingCopy* copy) { return !copy->Take(line); });
        constexpr std::uint64_t LinesPerLook = 1024;
        if (line.Number % LinesPerLook != 0) continue;
        if (Options.IsCanceled()) return;
        constexpr double ShareOfReading = 0.99;
        ShowProgress(ShareOfReading * reader.Share());
    }
    for (PendingCopy* const copy : taking) copy->End();
}

// Percentages only grow, whatever is read again.
void CopyRun::ShowProgress(double share) {
    const auto percent = static_cast<std::uint32_t>(100 * std::clamp(share, 0.0, 1.0));
    if (percent <= Shown || !Options.OnProgress) return;
    Shown = percent;
    Options.OnProgress(percent);
}
}  // namespace kelvarin::plan
