// Times whose parts are columns of their own.
#include <algorithm>

#include "host/plan/TimeCandidates.h"
#include "host/plan/TimeNames.h"

namespace kelvarin::plan {
namespace {
bool Has(const std::vector<PartColumn>& parts, TimePart part) {
    return std::any_of(parts.begin(), parts.end(),
                       [part](const PartColumn& one) { return one.Part == part; });
}
}  // namespace

std::vector<PartColumn> TimeCandidates::PartsByName() const {
    std::vector<PartColumn> parts;
    for (std::size_t i = 0; i < Width; ++i) {
        const std::optional<TimePart> part = PartOfName(LabelOf(i));
        if (part && !Has(parts, *part)) parts.push_back({i, *part});
    }
    return parts;
}

// Side by side: a year, the day of the year or not, month, day, hours, minutes and seconds or not. Nothing
// but the values tells, so all of the first four must fit.
std::vector<PartColumn> TimeCandidates::PartsByValue() const {
    constexpr std::size_t FirstColumns = 12;
    const auto isWithin = [this](std::size_t column, std::int64_t least, std::int64_t most) {
        return BoundsOf(column).IsWithin(least, most);
    };
    for (std::size_t i = 0; i + 3 < std::min(Width, FirstColumns); ++i) {
        if (!isWithin(i, 1970, 2100)) continue;
        std::size_t next = i + 1;
        // A day of the year and a clock without a colon.
        if (isWithin(next, 1, 366) && !isWithin(next, 1, 31) && isWithin(next + 1, 0, 2400) &&
            !isWithin(next + 1, 0, 24))
            return {{i, TimePart::Year}, {next, TimePart::DayOfYear}, {next + 1, TimePart::HoursMinutes}};
        const bool hasDayOfYear = isWithin(next, 1, 366) && isWithin(next + 1, 1, 12) &&
                                  isWithin(next + 2, 1, 31) && isWithin(next + 3, 0, 24);
        if (hasDayOfYear) ++next;
        if (!isWithin(next, 1, 12) || !isWithin(next + 1, 1, 31) || !isWithin(next + 2, 0, 24)) continue;
        std::vector<PartColumn> parts = {{i, TimePart::Year},
                                         {next, TimePart::Month},
                                         {next + 1, TimePart::Day},
                                         {next + 2, TimePart::Hours}};
        const bool hasMinutes = isWithin(next + 3, 0, 59);
        if (hasMinutes) parts.push_back({next + 3, TimePart::Minutes});
        if (hasMinutes && isWithin(next + 4, 0, 60) && BoundsOf(next + 4).Most > 1)
            parts.push_back({next + 4, TimePart::Seconds});
        return parts;
    }
    return {};
}

void TimeCandidates::AddParts() {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Parts;
    recipe.IsAbsolute = true;
    recipe.Parts = PartsByName();
    if (recipe.Parts.empty()) recipe.Parts = PartsByValue();
    const auto has = [&](TimePart part) { return Has(recipe.Parts, part); };
    const bool isDate =
        has(TimePart::Year) && (has(TimePart::DayOfYear) || (has(TimePart::Month) && has(TimePart::Day)));
    const bool isWeek = !isDate && has(TimePart::Week) && has(TimePart::Seconds);
    if (!isDate && !isWeek) return;
    std::erase_if(recipe.Parts, [isWeek](const PartColumn& part) {
        return isWeek ? part.Part != TimePart::Week && part.Part != TimePart::Seconds
                      : part.Part == TimePart::Week;
    });
    Consider(recipe, 0.99);
}
}  // namespace kelvarin::plan
