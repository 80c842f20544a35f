#include "host/plan/TimeSearch.h"

#include <algorithm>

#include "host/plan/Durations.h"
#include "host/plan/SharedTimes.h"
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

// True if the first row with a time by `recipe` has one by `zoned` too.
bool IsFirstZoned(const TimeRecipe& recipe, const TimeRecipe& zoned, const TableRows& rows) {
    TimeWalk walk(recipe);
    for (const auto& cells : rows.Cells) {
        if (walk.Next(cells, rows.Width)) return TimeWalk(zoned).Next(cells, rows.Width).has_value();
    }
    return false;
}

// Texts that all name their zone are moments, also where the zone changes between summer and winter.
void ApplyZones(FoundTimes& times, const TableRows& rows) {
    TimeRecipe zoned = times.Recipe;
    zoned.AppliesZone = true;
    if (zoned.Kind != TimeKind::Text || !zoned.IsAbsolute) return;
    if (!zoned.HasDateLines && !IsFirstZoned(times.Recipe, zoned, rows)) return;
    const TimeTrial trial = Try(zoned, rows);
    if (trial.Read != times.Trial.Read) return;
    times.Recipe = zoned;
    times.Trial = trial;
}

// Rows that fall back at midnight alone, and not with a day more.
void MoveMidnight(FoundTimes& times, const TableRows& rows) {
    TimeRecipe moved = times.Recipe;
    moved.EndsDays = true;
    if (times.Trial.Falling == 0 || !moved.IsAbsolute || moved.AppliesZone) return;
    const TimeTrial trial = Try(moved, rows);
    if (trial.Falling != 0 || trial.Equal > times.Trial.Equal) return;
    times.Recipe = moved;
    times.Trial = trial;
}

bool IsAnyNamed(const TimeRecipe& recipe, const Labels& labels) {
    const std::vector<std::size_t> columns = ColumnsOf(recipe);
    return std::any_of(columns.begin(), columns.end(), [&](std::size_t column) {
        return column < labels.Columns.size() && IsNamed(labels.Columns[column], recipe);
    });
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

bool AreOfOneForm(const TimeRecipe& one, const TimeRecipe& other) {
    return one.Kind == other.Kind && one.Columns == other.Columns && one.Offset == other.Offset &&
           one.IsAbsolute == other.IsAbsolute && one.IsUtc == other.IsUtc && one.Parts == other.Parts;
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
    times.IsNamed = IsAnyNamed(times.Recipe, labels);
    ApplyZones(times, rows);
    MoveMidnight(times, rows);
    return times;
}

FoundTimes FindTimesLike(const FoundTimes& like, const TableRows& rows, const Labels& labels,
                         const PreambleClues& clues) {
    if (like.Recipe.Kind == TimeKind::Interval) {
        FoundTimes times = IntervalOf(rows, clues);
        AddEvidence(times, like);
        times.Trial = Try(times.Recipe, rows);
        return times;
    }
    TimeCandidates candidates(rows, labels, clues, ColumnsOf(like.Recipe));
    if (like.Recipe.Kind == TimeKind::Number) {
        candidates.AddNumbers();
    } else {
        candidates.AddTexts();
        candidates.AddParts();
    }
    FoundTimes times = like;
    bool isTried = false;
    for (const FoundTimes& found : candidates.Found()) {
        if (!AreOfOneForm(found.Recipe, like.Recipe)) continue;
        times = found;
        ApplyZones(times, rows);
        MoveMidnight(times, rows);
        isTried = true;
        break;
    }
    times.Rival = like.Rival;
    times.IsNamed = IsAnyNamed(times.Recipe, labels);
    const TimeRecipe own = times.Recipe;
    AddEvidence(times, like);
    if (!isTried || times.Recipe != own) times.Trial = Try(times.Recipe, rows);
    return times;
}
}  // namespace kelvarin::plan
