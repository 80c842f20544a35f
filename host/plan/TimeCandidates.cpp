#include "host/plan/TimeCandidates.h"

#include <algorithm>

namespace kelvarin::plan {
TimeCandidates::TimeCandidates(const TableRows& rows, const Labels& labels, const PreambleClues& clues)
    : Rows(rows), Names(labels), Clues(clues) {
    constexpr std::size_t MostLookedAt = 256;
    for (const auto& row : rows.Cells) Width = std::max(Width, row.size());
    Width = std::min(Width, MostLookedAt);
    for (std::size_t i = 0; i < Width; ++i) Texts.push_back(TextsOf(rows, i));
    IsWanted.assign(Width, true);
}

TimeCandidates::TimeCandidates(const TableRows& rows, const Labels& labels, const PreambleClues& clues,
                               const std::vector<std::size_t>& columns)
    : TimeCandidates(rows, labels, clues) {
    IsWanted.assign(Width, false);
    for (const std::size_t column : columns) {
        if (column < Width) IsWanted[column] = true;
    }
}

FoundTimes* TimeCandidates::Consider(TimeRecipe recipe, double weight) {
    FoundTimes times;
    times.Recipe = std::move(recipe);
    times.Trial = Try(times.Recipe, Rows);
    const double read = static_cast<double>(times.Trial.Read) / static_cast<double>(Rows.Cells.size());
    constexpr double LeastPart = 0.6;  // of the rows that must have a time
    if (read < LeastPart) return nullptr;
    const double steps =
        std::max(1.0, static_cast<double>(times.Trial.Rising + times.Trial.Equal + times.Trial.Falling));
    const double ordered = static_cast<double>(std::max(times.Trial.Rising, times.Trial.Falling)) / steps;
    const double equal = static_cast<double>(times.Trial.Equal) / steps;
    // Equal times are kept as they are by a copy; a column that never moves is no axis.
    if (times.Trial.Rising + times.Trial.Falling == 0 && times.Trial.Read > 1) weight *= 0.2;
    times.Score = weight * read * (ordered + 0.5 * equal);
    All.push_back(std::move(times));
    return &All.back();
}

const Label& TimeCandidates::LabelOf(std::size_t column) const {
    static const Label none;
    return column < Names.Columns.size() ? Names.Columns[column] : none;
}

NumberBounds TimeCandidates::BoundsOf(std::size_t column) const {
    if (column >= Width || Texts[column].empty()) return {};
    NumberBounds bounds;
    for (const std::u16string_view text : Texts[column]) {
        const std::optional<NumberLook> look = LookAtNumber(text);
        if (!look || look->Mark != u'\0' || look->HasExponent || look->Digits > 6) return {};
        const auto value = static_cast<std::int64_t>(ValueOf(text, *look));
        bounds.Least = bounds.IsWhole ? std::min(bounds.Least, value) : value;
        bounds.Most = bounds.IsWhole ? std::max(bounds.Most, value) : value;
        bounds.IsWhole = true;
    }
    return bounds;
}
}  // namespace kelvarin::plan
