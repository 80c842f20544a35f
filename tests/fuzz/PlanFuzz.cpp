// Any bytes as a measurement file: whatever plan is found for it lies within the file, counts its rows
// rightly, and is the same when it is found again.
#include <algorithm>
#include <set>

#include "fuzz/kit/PlannedFile.h"
#include "host/plan/Sureness.h"

namespace {
using kelvarin::Assumption;
using kelvarin::Certainty;
using kelvarin::plan::FoundTimes;
using kelvarin::plan::ReadingPlan;
using kelvarin::plan::TimeTrial;

void CheckSample(const ReadingPlan& plan, const std::vector<std::u16string>& lines) {
    std::uint64_t before = 0;
    std::uint64_t sampled = 0;  // lines
    for (const auto& line : plan.Sample.Lines) {
        if (line.Number == 0) continue;
        Check(line.Number > before && line.Number <= lines.size(),
              "sampled lines are lines of the file in order");
        Check(line.Lines >= 1 && before + line.Lines <= line.Number, "no line is sampled twice");
        std::u16string text = lines[line.Number - line.Lines];
        for (std::size_t i = line.Number - line.Lines + 1; i < line.Number; ++i) text += u' ' + lines[i];
        Check(line.Text == text, "a sampled line has the text of the file's");
        sampled += line.Lines;
        before = line.Number;
    }
    Check(!plan.Sample.IsWhole || sampled == lines.size(), "a whole sample has every line");
}

void CheckTable(const ReadingPlan& plan, const std::vector<std::u16string>& lines) {
    Check(plan.FirstLine >= 1 && plan.FirstLine <= lines.size(), "the table begins in the file");
    Check(plan.NamesLine < plan.FirstLine && plan.UnitsLine < plan.FirstLine,
          "names and units are above the rows");
    Check(plan.Width >= 1 && plan.Width <= plan.Columns.size(),
          "there is a column for every cell of most rows");
    Check(plan.Rows.Cells.size() == plan.RowsLookedAt && plan.RowsLookedAt <= plan.Sample.Lines.size(),
          "the rows that are looked at are lines of the sample");
    Check(plan.Rows.IsAfterGap.size() == plan.Rows.Cells.size(), "gaps are known for every row");
}

void CheckTimes(const ReadingPlan& plan, const FoundTimes& times) {
    std::set<std::size_t> columns;
    for (const std::size_t column : ColumnsOf(times.Recipe)) {
        Check(column < plan.Columns.size() && plan.Columns[column].IsTime,
              "columns of times are columns of the plan");
        columns.insert(column);
    }
    for (std::size_t i = 0; i < plan.Columns.size(); ++i)
        Check(plan.Columns[i].IsTime == columns.contains(i), "no other column is one of times");
    Check(!times.Rival || *times.Rival < plan.Columns.size(), "the rival is a column of the plan");
    const TimeTrial& trial = times.Trial;
    Check(trial.Read <= plan.RowsLookedAt, "no more rows have a time than there are");
    Check(trial.Rising + trial.Equal + trial.Falling < std::max<std::size_t>(trial.Read, 1),
          "each row but the first is compared with the one before");
    Check(trial.MedianStep >= 0, "rising rows have a positive distance");
}

std::string Told(const std::vector<Assumption>& assumptions) {
    std::string text;
    for (const Assumption& one : assumptions) {
        text += one.Kind + ": " + one.Text + " (" + std::to_string(static_cast<int>(one.Sureness)) + ")\n";
        for (const std::string& objection : one.Objections) text += "  " + objection + "\n";
    }
    return text;
}

void CheckAssumptions(const std::vector<Assumption>& assumptions) {
    std::set<std::string> kinds;
    for (const Assumption& one : assumptions) {
        Check(kinds.insert(one.Kind).second && !one.Text.empty(), "an assumption of a kind, with a text");
        Check(one.Objections.empty() || one.Sureness != Certainty::Certain,
              "what has an objection is not certain");
    }
    Check(kinds.contains("table") && kinds.contains("times"), "table and times are always told");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    const PlannedFile file(home, {reinterpret_cast<const char*>(data), size});
    if (!file.Plan) return 0;
    CheckSample(*file.Plan, file.Lines);
    CheckTable(*file.Plan, file.Lines);
    if (file.Plan->Times) CheckTimes(*file.Plan, *file.Plan->Times);
    const std::vector<Assumption> assumptions = Assumptions(*file.Plan);
    CheckAssumptions(assumptions);
    const auto again = kelvarin::plan::FindPlan(file.Path);
    Check(again && Told(Assumptions(*again)) == Told(assumptions), "the same plan is found again");
    return 0;
}
