#include "host/plan/MinuteMemo.h"

#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
std::optional<std::int64_t> MinuteMemo::Known(const TimeRecipe& recipe,
                                              const std::vector<std::u16string_view>& cells) const {
    if (!IsKnown || recipe.Columns.back() >= cells.size()) return std::nullopt;
    if (recipe.Columns.size() > 1) {
        const std::size_t column = recipe.Columns.front();
        if (column >= cells.size() || cells[column] != Date) return std::nullopt;
    }
    const std::optional<std::int64_t> seconds = Minute.SecondsMore(cells[recipe.Columns.back()]);
    if (!seconds) return std::nullopt;
    return Time + *seconds;
}

std::optional<std::int64_t> MinuteMemo::TimeOf(const TimeRecipe& recipe,
                                               const std::vector<std::u16string_view>& cells) {
    if (const std::optional<std::int64_t> known = Known(recipe, cells)) return known;
    const bool isPlain = recipe.Kind == TimeKind::Text && recipe.Columns.size() <= 2 &&
                         !recipe.Style.BeginsWithMinutes && !recipe.Style.FractionIsCounted;
    const std::optional<std::int64_t> time = recipe.TimeOf(cells);
    if (!isPlain || !time) return time;
    Minute.Take(cells[recipe.Columns.back()]);
    IsKnown = true;
    Date = recipe.Columns.size() > 1 ? cells[recipe.Columns.front()] : u"";
    Time = *time;
    return time;
}
}  // namespace kelvarin::plan
