// Times that are texts.
#include <algorithm>

#include "host/plan/Durations.h"
#include "host/plan/SameMinute.h"
#include "host/plan/TimeCandidates.h"
#include "host/plan/TimeGroups.h"
#include "host/plan/TimeNames.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// A column with so many other texts that it is of none of the kinds has no counts.
ColumnLook LookAt(const std::vector<std::u16string_view>& texts, int year) {
    ColumnLook look;
    look.Filled = texts.size();
    std::size_t others = 0;
    SameMinute minute;
    std::optional<ParsedTime> time;  // of the last text that wasn't left out
    for (const std::u16string_view text : texts) {
        if (minute.SecondsMore(text)) {
            look.AddTime(*time);
            continue;
        }
        const std::optional<NumberLook> number = LookAtNumber(text);
        if (number) {
            ++look.Numbers;
            constexpr std::size_t DigitsOfDate = 8;
            if (number->HasExponent || (number->Mark != u'\0' && number->Digits < DigitsOfDate)) continue;
            if (text.size() != 8 && text.size() != 10 && text.size() < 12) continue;
        }
        time = ParseInAnyOrder(text, year);
        minute.Take(time && !number ? text : std::u16string_view());
        if (!time) time = ParseTime(text, {DateOrder::DayFirst, true});
        if (time) {
            look.AddTime(*time);
        } else {
            others += !number;
            if (!look.Is(texts.size() - others)) return {};
        }
    }
    return look;
}

// No hour is beyond 24, so that the clock may run over midnight.
bool IsClockOfDay(const std::vector<std::u16string_view>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        const std::optional<ParsedTime> time = ParseTime(text, {});
        return !time || (!time->IsSpan && time->Clock <= DayLength);
    });
}

// It has the digits of the 29th.
bool MayHoldLeapDay(std::u16string_view text) {
    return std::adjacent_find(text.begin(), text.end(), [](char16_t one, char16_t next) {
               return one == u'2' && next == u'9';
           }) != text.end();
}

// "12:30".
bool AreShort(const std::vector<std::u16string_view>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        return text.size() <= 5 && std::count(text.begin(), text.end(), u':') == 1;
    });
}

// The texts of two columns with a blank between them.
std::vector<std::u16string> JointTexts(const TableRows& rows, std::size_t one, std::size_t other) {
    std::vector<std::u16string> texts;
    for (const auto& row : rows.Cells) {
        if (std::max(one, other) >= row.size()) continue;
        std::u16string& joint = texts.emplace_back(row[one]);
        joint += u' ';
        joint += row[other];
    }
    return texts;
}

// "235207", as a clock without colons is written.
bool AreSixDigits(const std::vector<std::u16string_view>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        return text.size() == 6 && std::all_of(text.begin(), text.end(), IsDigit);
    });
}

bool MostAreDatesWithClocks(const std::vector<std::u16string>& texts, const TimeStyle& style) {
    const auto count = std::count_if(texts.begin(), texts.end(), [&](std::u16string_view text) {
        const std::optional<ParsedTime> time = ParseTime(text, style);
        return time && time->HasDate && time->HasClock;
    });
    return 10 * static_cast<std::size_t>(count) >= 8 * texts.size();
}
}  // namespace

void TimeCandidates::LookAtTexts() {
    for (std::size_t i = 0; i < Width; ++i) {
        Years.push_back(IsWanted[i] ? YearOf(Texts[i]) : 0);
        Looks.push_back(IsWanted[i] ? LookAt(Texts[i], Years[i]) : ColumnLook{});
    }
}

void TimeCandidates::AddTexts() {
    LookAtTexts();
    for (std::size_t i = 0; i < Width; ++i) {
        const ColumnLook& look = Looks[i];
        const bool isNextNumber = i + 1 < Width && Looks[i + 1].Is(Looks[i + 1].Numbers);
        if (look.Is(look.Both + look.Dates)) {
            AddDates(i);
        } else if (look.Is(look.Numbers) && IsNamedDate(LabelOf(i)) && isNextNumber &&
                   IsNamedClock(LabelOf(i + 1))) {
            AddJointDigits(i);
        } else if (look.Is(look.Clocks)) {
            AddClocks(i);
        }
    }
}

// The year of dates without one: that of the lines above, else any that has the days of the texts.
int TimeCandidates::YearOf(const std::vector<std::u16string_view>& texts) const {
    if (Clues.Year) return *Clues.Year;
    constexpr int CommonYear = 2001;
    constexpr int LeapYear = 2004;
    const bool hasLeapDay = std::any_of(texts.begin(), texts.end(), [](std::u16string_view text) {
        return MayHoldLeapDay(text) && !ParseInAnyOrder(text, CommonYear) && ParseInAnyOrder(text, LeapYear);
    });
    return hasLeapDay ? LeapYear : CommonYear;
}

// Where the lines above the table have dates of twelve hours between strokes, so have its rows, if they can.
void TimeCandidates::PutMonthFirst(std::size_t column, DateStyle& style) const {
    const auto isBetweenStrokes = [](std::u16string_view text) { return text.find(u'/') != text.npos; };
    if (!std::all_of(Texts[column].begin(), Texts[column].end(), isBetweenStrokes)) return;
    TimeStyle monthFirst = style.Style;
    monthFirst.Order = DateOrder::MonthFirst;
    const bool fits = std::all_of(Texts[column].begin(), Texts[column].end(), [&](const auto& text) {
        return ParseTime(text, monthFirst) || !ParseTime(text, style.Style);
    });
    if (fits) style = {monthFirst, OrderProof::Custom};
}

// AM and PM alone: the rest of the clock to the left.
bool TimeCandidates::AreHalves(std::size_t column) const {
    return column < Width && !Texts[column].empty() &&
           20 * std::count_if(Texts[column].begin(), Texts[column].end(),
                              [](std::u16string_view text) {
                                  return text.size() > 1 && HalfOfName(text) != DayHalf::Unnamed;
                              }) >=
               19 * static_cast<std::ptrdiff_t>(Texts[column].size());
}

// Some rows leave out the date of the row before.
bool TimeCandidates::LeavesOut(std::size_t column) const {
    return std::any_of(Rows.Cells.begin() + 1, Rows.Cells.end(),
                       [column](const auto& row) { return column < row.size() && row[column].empty(); });
}

// A date with or without a clock, or with one in another column: the nearest first, to the right before the
// left.
void TimeCandidates::AddDates(std::size_t column) {
    auto style = FindDateStyle(Texts[column], LabelOf(column).All, Rows, {column}, Years[column]);
    if (!style) return;
    if (style->Proof == OrderProof::None && Clues.HasTwelveHours) PutMonthFirst(column, *style);
    FoundTimes date;
    date.Recipe.Columns = {column};
    date.Recipe.Style = style->Style;
    date.Recipe.IsAbsolute = style->Style.Year == 0 || Clues.Year;
    date.Recipe.RollsOver = style->Style.Year != 0;
    date.Order = style->Proof;
    const bool isBoth = 2 * Looks[column].Both > Looks[column].Filled;
    if (FoundTimes* const found = Consider(date.Recipe, isBoth ? 1.0 : 0.9)) found->Order = date.Order;
    if (isBoth) return;
    constexpr std::size_t MostDistance = 20;
    for (std::size_t distance = 1; distance <= std::min(Width, MostDistance); ++distance) {
        if (column + distance < Width) AddClockBeside(date, column + distance, distance);
        if (distance <= column) AddClockBeside(date, column - distance, distance);
    }
}

void TimeCandidates::AddClockBeside(const FoundTimes& date, std::size_t other, std::size_t distance) {
    if (!IsWanted[other]) return;
    const ColumnLook& look = Looks[other];
    const std::size_t column = date.Recipe.Columns.front();
    const bool isNamed = IsNamedClock(LabelOf(other));
    const bool isNumber = look.Is(look.Numbers);
    // "13.00.00" and "130000" are clocks only after a date.
    const bool mayBeClock = isNamed || (distance == 1 && (!isNumber || AreSixDigits(Texts[other])));
    if (look.Is(look.Clocks) ||
        (mayBeClock && MostAreDatesWithClocks(JointTexts(Rows, column, other), date.Recipe.Style))) {
        AddMilliseconds(column, other, {date.Recipe.Style, date.Order});
        TimeRecipe joint = date.Recipe;
        joint.Columns = {column, other};
        if (AreHalves(other + 1)) joint.Columns.push_back(other + 1);
        joint.CarriesDate = LeavesOut(column);
        FoundTimes* const found = Consider(joint, 1.0 - 0.01 * static_cast<double>(distance));
        if (found != nullptr) found->Order = date.Order;
    } else if (isNumber && distance == 1 && MayBeQuarters(other)) {
        AddQuartersBeside(date, other);
    } else if (isNumber && (isNamed || (distance == 1 && MayBeHours(other)))) {
        AddHoursBeside(date, other, isNamed ? 0.97 : 0.9);
    }
}

// Without a name, numbers are hours only if they go far into the day; other small ones count something else.
bool TimeCandidates::MayBeHours(std::size_t column) const {
    const NumberBounds bounds = BoundsOf(column);
    constexpr std::int64_t LateHour = 18;
    const bool areFourDigits = std::all_of(Texts[column].begin(), Texts[column].end(),
                                           [](const auto& text) { return text.size() == 4; });
    return bounds.IsWithin(0, 2400) && (areFourDigits || bounds.Most >= LateHour);
}

// Whole days of quarters of an hour have 96, and up to 100 where the clocks change.
bool TimeCandidates::MayBeQuarters(std::size_t column) const {
    const NumberBounds bounds = BoundsOf(column);
    return bounds.IsWithin(1, 100) && bounds.Least == 1 && bounds.Most >= 92;
}

void TimeCandidates::AddQuartersBeside(const FoundTimes& date, std::size_t other) {
    TimeRecipe joint = date.Recipe;
    joint.Kind = TimeKind::Parts;
    joint.Parts = {{joint.Columns.front(), TimePart::Date}, {other, TimePart::Quarters}};
    joint.Columns = {};
    const TimeTrial trial = Try(joint, Rows);
    if (trial.Equal + trial.Falling > 0) return;
    if (FoundTimes* const found = Consider(joint, 0.95)) found->Order = date.Order;
}

void TimeCandidates::AddHoursBeside(const FoundTimes& date, std::size_t other, double weight) {
    // "100" is one o'clock; no hour is greater than 24.
    const bool isLarge = std::any_of(Texts[other].begin(), Texts[other].end(),
                                     [](const auto& text) { return text.size() > 2 && text != u"024"; });
    TimeRecipe joint = date.Recipe;
    joint.Kind = TimeKind::Parts;
    joint.Columns = {};
    joint.Parts = {{date.Recipe.Columns.front(), TimePart::Date},
                   {other, isLarge ? TimePart::HoursMinutes : TimePart::Hours}};
    if (FoundTimes* const found = Consider(joint, weight)) found->Order = date.Order;
}

// A date, a clock and milliseconds in a third column.
void TimeCandidates::AddMilliseconds(std::size_t date, std::size_t clock, const DateStyle& style) {
    for (std::size_t i = 0; i < Width; ++i) {
        const bool isNamed = PartOfName(LabelOf(i)) == TimePart::Milliseconds || LabelOf(i).Unit == u"ms";
        if (!isNamed || !BoundsOf(i).IsWithin(0, 999)) continue;
        TimeRecipe recipe;
        recipe.Kind = TimeKind::Parts;
        recipe.IsAbsolute = true;
        recipe.Style = style.Style;
        recipe.Parts = {{date, TimePart::Date}, {clock, TimePart::Clock}, {i, TimePart::Milliseconds}};
        if (FoundTimes* const found = Consider(recipe, 1.04)) found->Order = style.Proof;
        return;
    }
}

// "230905,235207": the texts are a date and a clock only together.
void TimeCandidates::AddJointDigits(std::size_t column) {
    const std::vector<std::u16string> texts = JointTexts(Rows, column, column + 1);
    const auto style =
        FindDateStyle({texts.begin(), texts.end()}, LabelOf(column).All, Rows, {column, column + 1}, 0);
    if (!style) return;
    TimeRecipe recipe;
    recipe.Columns = {column, column + 1};
    recipe.Style = style->Style;
    recipe.IsAbsolute = true;
    if (FoundTimes* const found = Consider(recipe, 0.99)) found->Order = style->Proof;
}

// Clocks below dates in lines of their own. False where there are none.
bool TimeCandidates::AddClocksBelowDates(std::size_t column) {
    if (Rows.DateLines.empty() || Rows.DateLines.front().empty()) return false;
    std::vector<std::u16string_view> dates(Rows.DateLines.begin(), Rows.DateLines.end());
    std::erase_if(dates, [](std::u16string_view date) { return date.empty(); });
    const auto style = FindDateStyle(dates, {}, Rows, {}, 0);
    if (!style) return false;
    const std::optional<ParsedTime> first = ParseTime(dates.front(), style->Style);
    if (!first) return false;
    TimeRecipe recipe = ClockOf(column);
    recipe.Style.Order = style->Style.Order;
    recipe.IsAbsolute = true;
    recipe.HasDateLines = true;
    recipe.Epoch = first->Written();
    FoundTimes* const found = Consider(recipe, 0.98);
    if (found != nullptr) found->Order = style->Proof;
    return found != nullptr;
}

void TimeCandidates::AddClocks(std::size_t column) {
    if (AddClocksBelowDates(column)) return;
    const TimeRecipe recipe = ClockOf(column);
    FoundTimes* const found = Consider(recipe, IsNamedTime(LabelOf(column)) ? 0.86 : 0.8);
    if (found == nullptr) return;
    found->IsClockShort = !recipe.Style.BeginsWithMinutes && AreShort(Texts[column]);
    if (found->Trial.Falling == 0) return;
    // Milliseconds that are counted, not written as a fraction: "15:42:7" is followed by "15:42:12". They
    // tell themselves by their order: read as fractions they fall.
    TimeRecipe counting = recipe;
    counting.Style.FractionIsCounted = true;
    const TimeTrial counted = Try(counting, Rows);
    if (counted.Falling >= found->Trial.Falling) return;
    found->Recipe = counting;
    found->Trial = counted;
}

// Minutes come first if the name spells it, or if more rows can be read so: "12:30:75" ends in hundredths.
TimeRecipe TimeCandidates::ClockOf(std::size_t column) const {
    TimeRecipe recipe;
    recipe.Columns = {column};
    if (AreHalves(column + 1)) recipe.Columns.push_back(column + 1);
    TimeRecipe minutes = recipe;
    minutes.Style.BeginsWithMinutes = true;
    if (SpellsMinutesFirst(LabelOf(column)) || Try(minutes, Rows).Read > Try(recipe, Rows).Read)
        return minutes;
    recipe.RollsOver = IsClockOfDay(Texts[column]);
    return recipe;
}
}  // namespace kelvarin::plan
