// Times that are numbers.
#include <algorithm>

#include "host/plan/Durations.h"
#include "host/plan/TimeCandidates.h"
#include "host/plan/TimeNames.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// Seconds of the years 2000 to 2040.
bool IsSince1970(double seconds) {
    constexpr double From = 946'684'800;
    constexpr double To = 2'208'988'800;
    return seconds >= From && seconds <= To;
}
// "s since 1970", "Seconds since 1970-01-01".
bool IsNamedSince1970(const Label& label) {
    return (label.Name + u" " + label.Unit).find(u"since 1970") != std::u16string::npos;
}
}  // namespace

// A column of numbers, and what its name says.
struct TimeCandidates::NumberColumn {
    TimeRecipe Recipe;  // with the column and the decimal mark
    double First = 0;
    bool HasFractions = false;
    std::int64_t Unit = 0;  // ns; 0: none is named
    bool IsTime = false;
    bool IsDayOfYear = false;
    bool IsModifiedJulian = false;
    bool IsNamedSince1970 = false;
    bool IsFirstWithoutName = false;
};

// The only column of a file is what was measured.
void TimeCandidates::AddNumbers() {
    if (Width == 1) return;
    for (std::size_t i = 0; i < Width; ++i) {
        if (Texts[i].empty() || !IsWanted[i]) continue;
        NumberColumn column;
        column.Recipe.Kind = TimeKind::Number;
        column.Recipe.Columns = {i};
        std::size_t numbers = 0;
        for (const std::u16string_view text : Texts[i]) {
            const std::u16string_view bare = WithoutBrackets(text);
            const std::optional<NumberLook> look = LookAtNumber(bare);
            if (!look || look->Thousands != u'\0') continue;
            if (look->Mark != u'\0') column.Recipe.Mark = look->Mark;
            column.HasFractions |= look->Mark != u'\0';
            if (numbers++ == 0) column.First = ValueOf(bare, *look);
        }
        if (10 * numbers < 8 * Texts[i].size()) continue;
        const Label& label = LabelOf(i);
        column.Unit = UnitNamed(label);
        column.IsTime = IsNamedTime(label);
        // "DAY" above whole numbers is a date more often than an amount.
        if (column.Unit == 0 && column.HasFractions && PartOfName(label) == TimePart::Day)
            column.Unit = DayLength;
        column.IsDayOfYear = IsDayOfYear(label);
        column.IsModifiedJulian = IsModifiedJulian(label);
        column.IsNamedSince1970 = IsNamedSince1970(label);
        column.IsFirstWithoutName = i == 0 && label.Name.empty();
        AddSince1970(column);
        AddDays(column);
        const bool hasName = !label.Name.empty() || !label.Unit.empty();
        if (column.Unit != 0 || column.IsTime || column.IsFirstWithoutName) {
            AddElapsed(column);
        } else if (!hasName && column.HasFractions) {
            AddRising(column);
        }
    }
}

void TimeCandidates::AddSince1970(const NumberColumn& column) {
    for (const std::int64_t unit : {Second, Millisecond, std::int64_t{1000}, std::int64_t{1}}) {
        // A measurement that began in 1970 would be longer than any.
        const bool isSince1970 =
            column.IsNamedSince1970 || IsSince1970(column.First * static_cast<double>(unit) / 1e9);
        const bool fitsUnit = column.Unit == 0 || column.Unit == unit;
        if (!isSince1970 || !fitsUnit) continue;
        TimeRecipe recipe = column.Recipe;
        recipe.Unit = unit;
        recipe.IsAbsolute = true;
        recipe.IsUtc = true;
        // A number that most rows share is that of a device.
        const TimeTrial trial = Try(recipe, Rows);
        if (!column.IsNamedSince1970 && !column.IsTime && trial.Equal > trial.Rising + trial.Falling)
            continue;
        Consider(recipe, column.IsNamedSince1970 ? 1.03 : 0.98);
    }
}

// Days of a spreadsheet since 30 December 1899, Julian days since a noon or a midnight, days of a year whose
// number is above.
void TimeCandidates::AddDays(const NumberColumn& column) {
    if (!column.HasFractions) return;
    const auto consider = [&](std::int64_t offset, std::int64_t epoch) {
        TimeRecipe recipe = column.Recipe;
        recipe.Unit = DayLength;
        recipe.Offset = offset;
        recipe.Epoch = epoch;
        recipe.IsAbsolute = true;
        Consider(recipe, 0.9);
    };
    if (column.IsModifiedJulian) consider(40'587, 0);
    const bool areDays = column.Unit == 0 || column.Unit == DayLength;
    if (column.IsTime && areDays && column.First > 30'000 && column.First < 60'000) consider(25'569, 0);
    if (column.First > 2'400'000 && column.First < 2'500'000) consider(2'440'588, DayLength / 2);
    if (Clues.Year && column.First >= 0 && column.First < 367 && column.IsDayOfYear)
        consider(1, DaysSince1970(*Clues.Year, 1, 1) * DayLength);
}

void TimeCandidates::AddElapsed(const NumberColumn& column) {
    TimeRecipe recipe = column.Recipe;
    recipe.Unit = column.Unit != 0 ? column.Unit : Second;
    const bool isNamed = column.Unit != 0;
    // What no word names must be in order, and nothing that counts falls in every fourth row.
    const TimeTrial trial = Try(recipe, Rows);
    const std::size_t disorder = std::min(trial.Rising, trial.Falling);
    const std::size_t most = !isNamed && !column.IsTime ? 10 : 4;
    const bool isSaid = isNamed && column.IsTime;
    constexpr std::size_t FewestSteps = 10;  // fewer prove nothing
    const std::size_t steps = trial.Rising + trial.Falling;
    if (!isSaid && steps >= FewestSteps && most * disorder > steps) return;
    const double weight = column.IsTime ? (isNamed ? 0.8 : 0.75) : (isNamed ? 0.7 : 0.6);
    FoundTimes* const times = Consider(recipe, weight);
    if (times == nullptr || isNamed) return;
    times->IsUnitNamed = false;
    if (Clues.TimeUnit) {
        times->Recipe.Unit = *Clues.TimeUnit;
        times->IsUnitNamed = true;
        times->Trial = Try(times->Recipe, Rows);
        return;
    }
    const std::int64_t step = times->Trial.MedianStep;
    const std::int64_t counted = step / Second;
    if (Clues.Interval && counted > 0 && *Clues.Interval % counted == 0 && !column.HasFractions) {
        times->Recipe.Unit = *Clues.Interval / counted;
    } else if (!column.HasFractions &&
               (step >= 100'000 * Second || (step >= 1000 * Second && column.First >= 1e7))) {
        // Numbers that rise by hundred thousands, or in the tens of millions by thousands, are microseconds.
        times->Recipe.Unit = 1000;
    } else if (step > Second && !column.HasFractions) {
        times->Recipe.Unit = Millisecond;
    }
    times->Trial = Try(times->Recipe, Rows);
}

// Decimal numbers without a name that rise from row to row, as nothing that is measured does.
void TimeCandidates::AddRising(const NumberColumn& column) {
    TimeRecipe recipe = column.Recipe;
    recipe.Unit = Clues.TimeUnit.value_or(Second);
    const TimeTrial trial = Try(recipe, Rows);
    constexpr std::size_t FewestSteps = 10;
    if (trial.Rising < FewestSteps || trial.Equal + trial.Falling != 0) return;
    if (FoundTimes* const found = Consider(recipe, 0.5)) found->IsUnitNamed = Clues.TimeUnit.has_value();
}
}  // namespace kelvarin::plan
