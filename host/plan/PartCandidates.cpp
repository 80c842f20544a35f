// Times whose parts are columns of their own.
#include <algorithm>

#include "host/plan/Durations.h"
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
    // Without a month, a day is one of the year.
    if (Has(parts, TimePart::Month) || Has(parts, TimePart::DayOfYear)) return parts;
    for (PartColumn& part : parts) {
        const bool isOfYear = part.Part == TimePart::Day && BoundsOf(part.Column).IsWithin(1, 366);
        if (isOfYear && Has(parts, TimePart::Year)) part.Part = TimePart::DayOfYear;
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

// Nothing but the values tells of these parts: the times must rise in all rows.
void TimeCandidates::ConsiderRising(const std::vector<PartColumn>& parts, double weight) {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Parts;
    recipe.IsAbsolute = true;
    recipe.Parts = parts;
    const TimeTrial trial = Try(recipe, Rows);
    constexpr std::size_t FewestSteps = 3;
    if (trial.Rising < FewestSteps || trial.Equal + trial.Falling > 0) return;
    Consider(recipe, weight);
}

// Year, month and day side by side, in this order or the other way round, with a clock beside them or
// without; year and month; a year alone.
void TimeCandidates::AddDatesByValue() {
    constexpr std::size_t FirstColumns = 12;
    const auto isWithin = [this](std::size_t column, std::int64_t least, std::int64_t most) {
        return BoundsOf(column).IsWithin(least, most);
    };
    for (std::size_t i = 0; i < std::min(Width, FirstColumns); ++i) {
        if (!isWithin(i, 1900, 2100)) continue;
        const auto consider = [&](std::size_t month, std::size_t day) {
            std::vector<PartColumn> parts = {
                {i, TimePart::Year}, {month, TimePart::Month}, {day, TimePart::Day}};
            ConsiderRising(parts, 0.97);
            const std::size_t next = std::max(i, day) + 1;
            if (next >= Width || !Looks[next].Is(Looks[next].Clocks)) return;
            parts.push_back({next, TimePart::Clock});
            ConsiderRising(parts, 0.99);
        };
        if (isWithin(i + 1, 1, 12) && isWithin(i + 2, 1, 31)) consider(i + 1, i + 2);
        if (i >= 2 && isWithin(i - 1, 1, 12) && isWithin(i - 2, 1, 31)) consider(i - 1, i - 2);
        const Label& label = LabelOf(i);
        const bool mayBeYear = label.Name.empty() || PartOfName(label) == TimePart::Year;
        const bool isMonthBeside = isWithin(i + 1, 1, 12) && BoundsOf(i + 1).Most > 1;
        if (isMonthBeside)
            ConsiderRising({{i, TimePart::Year}, {i + 1, TimePart::Month}}, mayBeYear ? 0.96 : 0.9);
        if (mayBeYear) ConsiderRising({{i, TimePart::Year}}, label.Name.empty() ? 0.7 : 0.9);
    }
}

// A clock without colons: over more than a minute no number of another kind leaves out 60 to 99 in its last
// two digits.
void TimeCandidates::AddClockDigits() {
    for (std::size_t i = 0; i < Width; ++i) {
        if (!Looks[i].Is(Looks[i].Numbers) || IsNamedDate(LabelOf(i))) continue;
        TimeRecipe recipe;
        recipe.Kind = TimeKind::Parts;
        recipe.RollsOver = true;
        recipe.Parts = {{i, TimePart::HoursMinutesSeconds}};
        const TimeTrial trial = Try(recipe, Rows);
        constexpr std::size_t FewestSteps = 20;
        const bool areSteps =
            trial.Rising >= FewestSteps && trial.Falling == 0 && trial.Equal <= trial.Rising;
        const bool isLong = trial.Last - trial.First > Minute && trial.MedianStep < 40 * Second;
        if (trial.Read == Rows.Cells.size() && areSteps && isLong) Consider(recipe, 0.85);
    }
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
    AddClockDigits();
    if (!isDate && !isWeek) {
        AddDatesByValue();
        return;
    }
    std::erase_if(recipe.Parts, [isWeek](const PartColumn& part) {
        return isWeek ? part.Part != TimePart::Week && part.Part != TimePart::Seconds
                      : part.Part == TimePart::Week;
    });
    Consider(recipe, 0.99);
}
}  // namespace kelvarin::plan
