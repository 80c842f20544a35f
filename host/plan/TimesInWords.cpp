#include "host/plan/TimesInWords.h"

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "host/plan/Durations.h"

namespace kelvarin::plan {
namespace {
std::string ColumnsInWords(const ReadingPlan& plan, const std::vector<std::size_t>& columns) {
    std::string words;
    for (const std::size_t column : columns) {
        if (!words.empty()) words += ", ";
        words += ColumnInWords(plan, column);
    }
    return words;
}

std::string UnitInWords(std::int64_t unit) {
    switch (unit) {
        case 1:
            return Phrase("nanoseconds");
        case 1000:
            return Phrase("microseconds");
        case Millisecond:
            return Phrase("milliseconds");
        case Second:
            return Phrase("seconds");
        case Minute:
            return Phrase("minutes");
        case Hour:
            return Phrase("hours");
        case DayLength:
            return Phrase("days");
        default:
            return Phrase("units of {}", SpanInWords(unit));
    }
}

std::string OrderInWords(const FoundTimes& times) {
    if (times.Order == OrderProof::Unneeded) return {};
    switch (times.Recipe.Style.Order) {
        case DateOrder::DayFirst:
            return ", " + Phrase("day before month");
        case DateOrder::MonthFirst:
            return ", " + Phrase("month before day");
        default:
            return ", " + Phrase("year before month and day");
    }
}

std::string TextsInWords(const ReadingPlan& plan, const FoundTimes& times) {
    const TimeRecipe& recipe = times.Recipe;
    const std::string columns = ColumnsInWords(plan, recipe.Columns);
    if (!recipe.IsAbsolute) {
        if (recipe.HasUnknownYear())
            return Phrase("date and time without a year in {}", columns) + OrderInWords(times);
        const bool isClock = recipe.RollsOver;
        std::string words = isClock ? Phrase("time of day without a date in {}", columns)
                                    : Phrase("elapsed time in {}", columns);
        if (isClock && times.Trial.Last >= DayLength) words += ", " + Phrase("running over midnight");
        if (recipe.Style.FractionIsCounted) words += ", " + Phrase("milliseconds without leading zeros");
        return words;
    }
    if (recipe.HasDateLines)
        return Phrase("time of day in {}, below dates in lines of their own", columns) + OrderInWords(times);
    const bool areDays = times.Trial.First % DayLength == 0 && times.Trial.MedianStep % DayLength == 0;
    const bool isDate = areDays && recipe.Columns.size() == 1;
    return (isDate ? Phrase("date in {}", columns) : Phrase("date and time in {}", columns)) +
           OrderInWords(times);
}

std::string NumbersInWords(const ReadingPlan& plan, const TimeRecipe& recipe) {
    const std::string columns = ColumnsInWords(plan, recipe.Columns);
    if (recipe.IsUtc) return Phrase("{} since 1970 in {}", UnitInWords(recipe.Unit), columns);
    if (!recipe.IsAbsolute) return Phrase("elapsed {} in {}", UnitInWords(recipe.Unit), columns);
    if (recipe.Offset == 1) return Phrase("days of the year in {}", columns);
    constexpr std::int64_t JulianDays = 2'000'000;
    constexpr std::int64_t ModifiedJulianDays = 40'587;
    if (recipe.Offset == ModifiedJulianDays) return Phrase("modified Julian days in {}", columns);
    return recipe.Offset > JulianDays ? Phrase("Julian days in {}", columns)
                                      : Phrase("days since 30 December 1899 in {}", columns);
}
}  // namespace

std::string ColumnInWords(const ReadingPlan& plan, std::size_t column) {
    const std::string number = Phrase("column {}", column + 1);
    if (column >= plan.Columns.size() || plan.Columns[column].Name.empty()) return number;
    return number + " (" + Quoted(plan.Columns[column].Name) + ")";
}

std::string TimesInWords(const ReadingPlan& plan) {
    const FoundTimes& times = *plan.Times;
    const TimeRecipe& recipe = times.Recipe;
    switch (recipe.Kind) {
        case TimeKind::Text:
            return TextsInWords(plan, times);
        case TimeKind::Number:
            return NumbersInWords(plan, recipe);
        case TimeKind::Parts: {
            std::vector<std::size_t> columns;
            for (const PartColumn& part : recipe.Parts) columns.push_back(part.Column);
            if (!recipe.IsAbsolute)
                return Phrase("time of day without a date in {}", ColumnsInWords(plan, columns));
            return Phrase("date and time in parts: {}", ColumnsInWords(plan, columns)) + OrderInWords(times);
        }
        default:
            break;
    }
    const std::string step = SpanInWords(recipe.Unit);
    return recipe.IsAbsolute
               ? Phrase("no column holds times: a row every {}, from the start named above on", step)
               : Phrase("no column holds times: a row every {}", step);
}
}  // namespace kelvarin::plan
