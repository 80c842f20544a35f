#include "host/plan/TimeSearch.h"

#include <algorithm>

#include "host/plan/Durations.h"
#include "host/plan/TimeCandidates.h"
#include "host/plan/TimeNames.h"

namespace kelvarin::plan {
namespace {
// A column that the best times don't read and that holds times nearly as good.
std::optional<std::size_t> RivalOf(const FoundTimes& best, const std::vector<FoundTimes>& found) {
    constexpr double NearlyAsGood = 0.06;
    const std::vector<std::size_t> used = ColumnsOf(best.Recipe);
    for (const FoundTimes& times : found) {
        const std::vector<std::size_t> columns = ColumnsOf(times.Recipe);
        const bool isApart = std::none_of(columns.begin(), columns.end(), [&](std::size_t column) {
            return std::find(used.begin(), used.end(), column) != used.end();
        });
        if (isApart && times.Score >= best.Score - NearlyAsGood) return columns.front();
    }
    return std::nullopt;
}

const FoundTimes* BestOf(const std::vector<FoundTimes>& found) {
    const FoundTimes* best = nullptr;
    for (const FoundTimes& times : found) {
        const double doubt = times.Order == OrderProof::None ? 0.1 : 0;
        // Scores so close are equal: the column further left is taken, as people do.
        constexpr double Better = 0.02;
        if (best == nullptr || times.Score - doubt > best->Score + Better) best = &times;
    }
    return best;
}

bool IsNamed(const Label& label, const TimeRecipe& recipe) {
    return IsNamedTime(label) || (recipe.Kind == TimeKind::Parts && PartOfName(label));
}

// Texts that all name their zone are moments, also where the zone changes between summer and winter.
void ApplyZones(FoundTimes& times, const TableRows& rows) {
    TimeRecipe zoned = times.Recipe;
    zoned.AppliesZone = true;
    if (zoned.Kind != TimeKind::Text || !zoned.IsAbsolute) return;
    const TimeTrial trial = Try(zoned, rows);
    if (trial.Read != times.Trial.Read) return;
    times.Recipe = zoned;
    times.Trial = trial;
}

// Rows that follow each other at the interval of the preamble, or of a second for want of any.
FoundTimes IntervalOf(const TableRows& rows, const PreambleClues& clues) {
    FoundTimes interval;
    interval.Recipe.Kind = TimeKind::Interval;
    interval.Recipe.Unit = clues.Interval.value_or(Second);
    interval.Recipe.Epoch = clues.Interval ? clues.Start.value_or(0) : 0;
    interval.Recipe.IsAbsolute = interval.Recipe.Epoch != 0;
    interval.IsUnitNamed = clues.Interval.has_value();
    interval.Trial = Try(interval.Recipe, rows);
    return interval;
}
}  // namespace

std::vector<std::size_t> ColumnsOf(const TimeRecipe& recipe) {
    std::vector<std::size_t> columns = recipe.Columns;
    for (const PartColumn& part : recipe.Parts) columns.push_back(part.Column);
    return columns;
}

std::optional<FoundTimes> FindTimes(const TableRows& rows, const Labels& labels, const PreambleClues& clues) {
    if (rows.Cells.empty()) return std::nullopt;
    TimeCandidates candidates(rows, labels, clues);
    candidates.AddTexts();
    candidates.AddParts();
    candidates.AddNumbers();
    const FoundTimes* const best = BestOf(candidates.Found());
    if (best == nullptr) return IntervalOf(rows, clues);
    FoundTimes times = *best;
    times.Rival = RivalOf(times, candidates.Found());
    for (const std::size_t column : ColumnsOf(times.Recipe))
        times.IsNamed |= column < labels.Columns.size() && IsNamed(labels.Columns[column], times.Recipe);
    ApplyZones(times, rows);
    return times;
}
}  // namespace kelvarin::plan
