#include "host/plan/TimeRecipe.h"

#include <algorithm>
#include <cstddef>

#include "host/plan/Cells.h"
#include "host/plan/Durations.h"
#include "host/plan/ExactProduct.h"
#include "host/plan/TimeWords.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
std::optional<std::int64_t> WholeNumber(std::u16string_view text) {
    text = TrimWhiteSpace(text);
    if (text.empty() || text.size() > 9) return std::nullopt;
    std::int64_t number = 0;
    for (const char16_t c : text) {
        if (!IsDigit(c)) return std::nullopt;
        number = 10 * number + (c - u'0');
    }
    return number;
}

struct DateParts {
    std::int64_t Year = 0, Month = 1, Day = 1, DayOfYear = 0;
    std::int64_t Clock = 0;
    std::int64_t Days = 0;
    bool HasDate = false;
};

// A date, or a clock, as people write it.
bool AddText(TimePart part, std::u16string_view cell, DateParts& all, const TimeStyle& style) {
    const std::optional<ParsedTime> time = ParseTime(cell, style);
    if (!time || time->HasDate != (part == TimePart::Date)) return false;
    if (time->HasDate) all.Days = DaysSince1970(time->Year, time->Month, time->Day);
    all.HasDate |= time->HasDate;
    all.Clock += time->Clock;
    return true;
}

// Hours, minutes or seconds, with a fraction or without.
bool AddAmount(TimePart part, std::u16string_view cell, DateParts& all) {
    const std::int64_t unit = part == TimePart::Hours ? Hour : part == TimePart::Minutes ? Minute : Second;
    const std::optional<NumberLook> look = LookAtNumber(cell);
    if (!look) return false;
    const std::optional<std::int64_t> amount =
        ExactProduct(cell, unit, look->Mark == u'\0' ? u'.' : look->Mark);
    // Of a week, which begins on a Sunday, seconds go further.
    const bool isOfWeek = all.HasDate && all.Days % 7 == 3 && part == TimePart::Seconds;
    const std::int64_t most = part == TimePart::Hours ? DayLength : isOfWeek ? 7 * DayLength : 60 * unit;
    if (!amount || *amount < 0 || *amount > most) return false;
    all.Clock += *amount;
    return true;
}

// The parts that are whole numbers.
bool AddNumber(TimePart part, std::int64_t number, DateParts& all) {
    switch (part) {
        case TimePart::Milliseconds:
            all.Clock += number * Millisecond;
            return number < 1000;
        case TimePart::Quarters:
            all.Clock += (number - 1) * (Hour / 4);
            return number >= 1 && number <= 100;
        case TimePart::Week:
            // Weeks of satellite time count from 6 January 1980.
            all.Days = DaysSince1970(1980, 1, 6) + 7 * number;
            all.HasDate = true;
            return number < 10'000;
        case TimePart::Year:
            all.Year = number < 100 ? number + (number < 70 ? 2000 : 1900) : number;
            return all.Year >= 1900 && all.Year <= 2200;
        case TimePart::Month:
            all.Month = number;
            return number >= 1 && number <= 12;
        case TimePart::Day:
            all.Day = number;
            return number >= 1 && number <= 31;
        case TimePart::DayOfYear:
            all.DayOfYear = number;
            return number >= 1 && number <= 366;
        default:
            all.Clock += number / 100 * Hour + number % 100 * Minute;
            return number <= 2400 && number % 100 < 60;
    }
}

// A clock without colons: hhmmss, with a fraction or without.
bool AddClockDigits(std::u16string_view cell, DateParts& all) {
    constexpr std::size_t WholeDigits = 6;
    const std::optional<NumberLook> look = LookAtNumber(cell);
    if (!look || look->HasExponent || cell.size() < WholeDigits) return false;
    if (look->Mark != u'\0' && cell.find(look->Mark) != WholeDigits) return false;
    const std::optional<std::int64_t> whole = WholeNumber(cell.substr(0, WholeDigits));
    const std::optional<std::int64_t> seconds =
        ExactProduct(cell.substr(4), Second, look->Mark == u'\0' ? u'.' : look->Mark);
    if (!whole || !seconds) return false;
    const std::int64_t minutes = *whole / 100 % 100;
    all.Clock += *whole / 10'000 * Hour + minutes * Minute + *seconds;
    return *whole / 10'000 < 24 && minutes < 60 && *seconds >= 0 && *seconds < Minute;
}

bool AddPart(TimePart part, std::u16string_view cell, DateParts& all, const TimeStyle& style) {
    if (part == TimePart::Date || part == TimePart::Clock) return AddText(part, cell, all, style);
    if (part == TimePart::Hours || part == TimePart::Minutes || part == TimePart::Seconds)
        return AddAmount(part, cell, all);
    if (part == TimePart::HoursMinutesSeconds) return AddClockDigits(cell, all);
    std::optional<std::int64_t> number = WholeNumber(cell);
    if (part == TimePart::Month && !number) number = MonthOfName(cell);
    return number && AddNumber(part, *number, all);
}

std::optional<std::int64_t> TimeOfParts(const TimeRecipe& recipe,
                                        const std::vector<std::u16string_view>& cells) {
    DateParts all;
    for (const PartColumn& part : recipe.Parts) {
        if (part.Column >= cells.size() || !AddPart(part.Part, cells[part.Column], all, recipe.Style))
            return std::nullopt;
    }
    if (!all.HasDate && all.Year == 0) return all.Clock;
    if (!all.HasDate) {
        const int year = static_cast<int>(all.Year);
        all.Days = all.DayOfYear != 0
                       ? DaysSince1970(year, 1, 1) + all.DayOfYear - 1
                       : DaysSince1970(year, static_cast<int>(all.Month), static_cast<int>(all.Day));
    }
    return all.Days * DayLength + all.Clock;
}

std::optional<std::int64_t> TimeOfText(const TimeRecipe& recipe,
                                       const std::vector<std::u16string_view>& cells) {
    std::u16string joined;
    std::u16string_view text;
    for (const std::size_t column : recipe.Columns) {
        if (column >= cells.size() || cells[column].empty()) return std::nullopt;
        if (recipe.Columns.size() == 1) {
            text = cells[column];
        } else {
            joined += joined.empty() ? u"" : u" ";
            joined += cells[column];
            text = joined;
        }
    }
    const std::optional<ParsedTime> time = ParseTime(text, recipe.Style);
    const bool hasUnknownYear = recipe.HasUnknownYear();
    if (!time || time->HasDate != ((recipe.IsAbsolute && !recipe.HasDateLines) || hasUnknownYear))
        return std::nullopt;
    if (hasUnknownYear) return time->Written() - DaysSince1970(recipe.Style.Year, 1, 1) * DayLength;
    if (!recipe.AppliesZone) return time->Written();
    if (!time->ZoneMinutes) return std::nullopt;
    return time->Written() - *time->ZoneMinutes * 60 * Second;
}
}  // namespace

std::optional<std::int64_t> TimeRecipe::TimeOf(const std::vector<std::u16string_view>& cells) const {
    if (Kind == TimeKind::Parts) return TimeOfParts(*this, cells);
    if (Kind == TimeKind::Text) return TimeOfText(*this, cells);
    if (Kind == TimeKind::Interval) return Epoch;
    const std::size_t column = Columns.front();
    if (column >= cells.size()) return std::nullopt;
    const std::optional<std::int64_t> time = ExactProduct(WithoutBrackets(cells[column]), Unit, Mark, Offset);
    if (!time) return std::nullopt;
    return WrappingAdd(*time, Epoch);
}

void TimeWalk::TakeDate(std::u16string_view text) {
    const std::optional<ParsedTime> time = ParseTime(text, Recipe.Style);
    if (!time || !time->HasDate || time->HasClock) return;
    Day = time->Written();
    Days = 0;
    IsFirst = true;
}

std::int64_t TimeWalk::RollLength() const {
    const int year = Recipe.Style.Year;
    return year == 0 ? DayLength : (DaysSince1970(year + 1, 1, 1) - DaysSince1970(year, 1, 1)) * DayLength;
}

std::optional<std::int64_t> TimeWalk::TimeOf(const std::vector<std::u16string_view>& cells) {
    if (!Recipe.CarriesDate || Recipe.Columns.front() >= cells.size()) return Memo.TimeOf(Recipe, cells);
    const std::size_t column = Recipe.Columns.front();
    if (!cells[column].empty()) {
        Date = cells[column];
        return Memo.TimeOf(Recipe, cells);
    }
    Dated = cells;
    Dated[column] = Date;
    return Memo.TimeOf(Recipe, Dated);
}

std::optional<std::int64_t> TimeWalk::Next(const std::vector<std::u16string_view>& cells, std::size_t width) {
    const std::size_t used = Recipe.Columns.size() + Recipe.Parts.size();
    constexpr std::size_t WideTable = 4;
    bool isAlone = cells.size() <= used;
    if (!isAlone && cells.size() > WideTable) {
        std::size_t filled = 0;
        for (std::size_t i = 0; i < cells.size() && filled <= used; ++i) filled += !cells[i].empty();
        isAlone = filled <= used;
    }
    if (isAlone && width > used) {
        if (Recipe.HasDateLines && !cells.empty()) TakeDate(cells.front());
        return std::nullopt;
    }
    std::optional<std::int64_t> time = TimeOf(cells);
    if (!time) return std::nullopt;
    if (Recipe.HasDateLines) *time += Day;
    if (Recipe.Kind == TimeKind::Interval) return WrappingAdd(*time, WrappingMultiply(Recipe.Unit, Row++));
    if (Recipe.EndsDays && *time % DayLength == 0) return *time + DayLength;
    if (!Recipe.RollsOver) return time;
    const std::int64_t length = RollLength();
    if (!IsFirst && *time < Before - length / 2) Days += length;
    IsFirst = false;
    Before = *time;
    return *time + Days;
}
}  // namespace kelvarin::plan
