#include "host/plan/TimeSearch.h"

#include <algorithm>
#include <cmath>

#include "host/plan/Durations.h"
#include "host/plan/TimeNames.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr double LeastPart = 0.6;  // of the rows that must have a time

std::vector<std::u16string_view> Views(const std::vector<std::u16string>& cells) {
    return {cells.begin(), cells.end()};
}

std::size_t WidthOf(const TableRows& rows) {
    std::size_t width = 0;
    for (const auto& row : rows.Cells) width = std::max(width, row.size());
    return std::min<std::size_t>(width, 256);
}

const Label& LabelOf(const Labels& labels, std::size_t column) {
    static const Label none;
    return column < labels.Columns.size() ? labels.Columns[column] : none;
}

// Adds a recipe with what it makes of the rows, unless too few have a time.
void Consider(TimeRecipe recipe, double weight, const TableRows& rows, std::vector<FoundTimes>& found) {
    FoundTimes times;
    times.Recipe = std::move(recipe);
    times.Trial = Try(times.Recipe, rows);
    const auto count = static_cast<double>(rows.Cells.size());
    const double read = static_cast<double>(times.Trial.Read) / count;
    if (read < LeastPart) return;
    const double steps =
        std::max(1.0, static_cast<double>(times.Trial.Rising + times.Trial.Equal + times.Trial.Falling));
    const double ordered = static_cast<double>(std::max(times.Trial.Rising, times.Trial.Falling)) / steps;
    const double equal = static_cast<double>(times.Trial.Equal) / steps;
    // Equal times are kept as they are by a copy; a column that never moves is no axis.
    if (times.Trial.Rising + times.Trial.Falling == 0 && times.Trial.Read > 1) weight *= 0.2;
    times.Score = weight * read * (ordered + 0.5 * equal);
    found.push_back(std::move(times));
}

bool IsAmerican(const std::vector<std::u16string>& texts) {
    return std::any_of(texts.begin(), texts.end(), [](const std::u16string& text) {
        const bool isUnpadded = text.size() > 4 && (text[1] == u'/' || (text[2] == u'/' && text[4] == u'/'));
        return isUnpadded ||
               (text.find(u'/') != text.npos && (text.ends_with(u"AM") || text.ends_with(u"PM")));
    });
}

// Two points before any colon: "04.05.2023 10:00".
bool AreDotted(const std::vector<std::u16string>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string& text) {
        const std::u16string_view date = std::u16string_view(text).substr(0, text.find(u':'));
        return std::count(date.begin(), date.end(), u'.') == 2;
    });
}

// The order of day and month that the texts prove, else the one that makes even steps, else that of the
// label.
struct OrderFound {
    TimeStyle Style;
    OrderProof Proof = OrderProof::Unneeded;
};

std::optional<OrderFound> StyleOf(const std::vector<std::u16string>& texts, const Label& label,
                                  const TableRows& rows, const std::vector<std::size_t>& columns) {
    struct Tried {
        TimeStyle Style;
        std::size_t Read;
        TimeTrial Trial;
    };
    std::vector<Tried> tried;
    for (const DateOrder order : {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}) {
        const TimeStyle style{order, false, false};
        std::size_t read = 0;
        for (const std::u16string& text : texts) read += ParseTime(text, style).has_value();
        tried.push_back({style, read, {}});
    }
    const std::size_t most = std::max({tried[0].Read, tried[1].Read, tried[2].Read});
    if (most == 0) return std::nullopt;
    const auto writtenAs = [](const std::u16string& text, const Tried& one) {
        const std::optional<ParsedTime> time = ParseTime(text, one.Style);
        return time ? std::optional(time->Written()) : std::nullopt;
    };
    const auto readSame = [&] {
        return std::all_of(texts.begin(), texts.end(), [&](const std::u16string& text) {
            const std::optional<std::int64_t> time = writtenAs(text, tried[0]);
            return std::all_of(tried.begin(), tried.end(),
                               [&](const Tried& one) { return writtenAs(text, one) == time; });
        });
    };
    if (readSame()) return OrderFound{tried[0].Style, OrderProof::Unneeded};
    std::erase_if(tried, [most](const Tried& one) { return one.Read < most; });
    const std::optional<DateOrder> named = OrderIn(label.All);
    if (tried.size() > 1 && named) {
        for (const Tried& one : tried) {
            if (one.Style.Order == *named) return OrderFound{one.Style, OrderProof::Name};
        }
    }
    if (tried.size() == 1 || readSame()) return OrderFound{tried[0].Style, OrderProof::Texts};
    for (Tried& one : tried) {
        TimeRecipe recipe;
        recipe.Columns = columns;
        recipe.Style = one.Style;
        recipe.IsAbsolute = true;
        one.Trial = Try(recipe, rows);
    }
    // Steps of a day where others are a month, or rows that rise where others jump, tell the order.
    const auto better = [](const Tried& a, const Tried& b) {
        const std::size_t disorderA = std::min(a.Trial.Rising, a.Trial.Falling);
        const std::size_t disorderB = std::min(b.Trial.Rising, b.Trial.Falling);
        if (disorderA != disorderB) return disorderA < disorderB;
        const double spanA = std::abs(static_cast<double>(a.Trial.Last) - static_cast<double>(a.Trial.First));
        const double spanB = std::abs(static_cast<double>(b.Trial.Last) - static_cast<double>(b.Trial.First));
        return 2 * spanA < spanB;
    };
    // Where nothing tells: numbers of one digit between strokes, and clocks of twelve hours, are American.
    if (IsAmerican(texts))
        std::stable_partition(tried.begin(), tried.end(),
                              [](const Tried& one) { return one.Style.Order == DateOrder::MonthFirst; });
    std::stable_sort(tried.begin(), tried.end(), better);
    if (better(tried[0], tried[1])) return OrderFound{tried[0].Style, OrderProof::Steps};
    const bool isCustom =
        IsAmerican(texts) || (tried[0].Style.Order == DateOrder::DayFirst && AreDotted(texts));
    return OrderFound{tried[0].Style, isCustom ? OrderProof::Custom : OrderProof::None};
}

std::vector<std::u16string> TextsOf(const TableRows& rows, std::size_t column) {
    std::vector<std::u16string> texts;
    for (const auto& row : rows.Cells) {
        if (column < row.size() && !row[column].empty()) texts.push_back(row[column]);
    }
    return texts;
}

// What the texts of a column are.
struct ColumnLook {
    std::size_t Filled = 0, Dates = 0, Clocks = 0, Both = 0, Numbers = 0;
    bool Is(std::size_t count) const { return Filled > 0 && 10 * count >= 8 * Filled; }
};

ColumnLook LookAt(const std::vector<std::u16string>& texts) {
    ColumnLook look;
    for (const std::u16string& text : texts) {
        ++look.Filled;
        if (LookAtNumber(text)) {
            ++look.Numbers;
            if (text.size() != 8 && text.size() != 10 && text.size() < 12) continue;
        }
        std::optional<ParsedTime> time;
        for (const DateOrder order : {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}) {
            time = ParseTime(text, {order, false, false});
            if (time) break;
        }
        if (!time) continue;
        look.Dates += time->HasDate && !time->HasClock;
        look.Clocks += !time->HasDate;
        look.Both += time->HasDate && time->HasClock;
    }
    return look;
}

// No hour is beyond 24, so that the clock may run over midnight.
bool IsClockOfDay(const std::vector<std::u16string>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string& text) {
        const std::optional<ParsedTime> time = ParseTime(text, {});
        return !time || (!time->IsSpan && time->Clock <= DayLength);
    });
}

// Milliseconds that are counted, not written as a fraction: "15:42:7" is followed by "15:42:12". They tell
// themselves by their order: read as fractions they fall.
void ConsiderCounted(const TimeRecipe& recipe, const TableRows& rows, std::vector<FoundTimes>& found) {
    TimeRecipe counted = recipe;
    counted.Style.FractionIsCounted = true;
    const TimeTrial plain = Try(recipe, rows);
    if (plain.Falling > 0 && Try(counted, rows).Falling < plain.Falling && !found.empty()) {
        found.back().Recipe = counted;
        found.back().Trial = Try(counted, rows);
    }
}

// A column of whole numbers within bounds, the largest and the smallest of them.
struct NumberBounds {
    bool IsWhole = true;
    std::int64_t Least = 0, Most = 0;
};

NumberBounds BoundsOf(const TableRows& rows, std::size_t column) {
    NumberBounds bounds;
    bool isFirst = true;
    for (const auto& row : rows.Cells) {
        if (column >= row.size() || row[column].empty()) continue;
        const std::optional<NumberLook> look = LookAtNumber(row[column]);
        bounds.IsWhole &= look && look->Mark == u'\0' && !look->HasExponent && look->Digits <= 6;
        if (!bounds.IsWhole) break;
        const auto value = static_cast<std::int64_t>(ValueOf(row[column], *look));
        bounds.Least = isFirst ? value : std::min(bounds.Least, value);
        bounds.Most = isFirst ? value : std::max(bounds.Most, value);
        isFirst = false;
    }
    bounds.IsWhole &= !isFirst;
    return bounds;
}

// A date, a clock and milliseconds in a third column.
void ConsiderMilliseconds(std::size_t date, std::size_t clock, const TimeStyle& style, const TableRows& rows,
                          const Labels& labels, std::vector<FoundTimes>& found) {
    for (std::size_t i = 0; i < WidthOf(rows); ++i) {
        const bool isNamed =
            PartOfName(LabelOf(labels, i)) == TimePart::Milliseconds || LabelOf(labels, i).Unit == u"ms";
        const NumberBounds bounds = isNamed ? BoundsOf(rows, i) : NumberBounds{false, 0, 0};
        if (!bounds.IsWhole || bounds.Least < 0 || bounds.Most > 999) continue;
        TimeRecipe recipe;
        recipe.Kind = TimeKind::Parts;
        recipe.IsAbsolute = true;
        recipe.Style = style;
        recipe.Parts = {{date, TimePart::Date}, {clock, TimePart::Clock}, {i, TimePart::Milliseconds}};
        Consider(recipe, 1.04, rows, found);
        return;
    }
}

// Candidates whose texts people read as dates and clocks.
void FindTexts(const TableRows& rows, const Labels& labels, std::vector<FoundTimes>& found) {
    const std::size_t width = WidthOf(rows);
    std::vector<ColumnLook> looks;
    std::vector<std::vector<std::u16string>> texts;
    for (std::size_t i = 0; i < width; ++i) {
        texts.push_back(TextsOf(rows, i));
        looks.push_back(LookAt(texts.back()));
    }
    for (std::size_t i = 0; i < width; ++i) {
        const Label& label = LabelOf(labels, i);
        TimeRecipe recipe;
        recipe.Columns = {i};
        if (looks[i].Is(looks[i].Both + looks[i].Dates) || looks[i].Is(looks[i].Both)) {
            const auto style = StyleOf(texts[i], label, rows, {i});
            if (!style) continue;
            recipe.Style = style->Style;
            recipe.IsAbsolute = true;
            const bool isBoth = 2 * looks[i].Both > looks[i].Filled;
            const std::size_t before = found.size();
            Consider(recipe, isBoth ? 1.0 : 0.9, rows, found);
            if (found.size() > before) found.back().Order = style->Proof;
            if (isBoth) continue;
            // A clock in another column, the nearest first, to the right before the left.
            for (std::size_t distance = 1; distance < width; ++distance) {
                for (const std::size_t other : {i + distance, i - distance}) {
                    if (other >= width) continue;
                    const bool isNamed = IsNamedClock(LabelOf(labels, other));
                    const bool isClock = looks[other].Is(looks[other].Clocks);
                    const bool isNumber = looks[other].Is(looks[other].Numbers) && (isNamed || distance == 1);
                    if (!isClock && !isNumber) continue;
                    TimeRecipe joint = recipe;
                    const std::size_t known = found.size();
                    if (isClock) {
                        ConsiderMilliseconds(i, other, recipe.Style, rows, labels, found);
                        joint.Columns = {i, other};
                        Consider(joint, 1.0 - 0.01 * static_cast<double>(std::min<std::size_t>(distance, 20)),
                                 rows, found);
                    } else {
                        joint.Kind = TimeKind::Parts;
                        // "100" is one o'clock; no hour is greater than 24.
                        const bool isLarge =
                            std::any_of(texts[other].begin(), texts[other].end(),
                                        [](const auto& text) { return text.size() > 2 && text != u"024"; });
                        joint.Parts = {{i, TimePart::Date},
                                       {other, isLarge ? TimePart::HoursMinutes : TimePart::Hours}};
                        joint.Columns = {};
                        Consider(joint, isNamed ? 0.97 : 0.9, rows, found);
                    }
                    if (found.size() > known) found.back().Order = style->Proof;
                }
                if (distance > 20) break;
            }
        } else if (looks[i].Is(looks[i].Numbers) && IsNamedDate(label) && i + 1 < width &&
                   IsNamedClock(LabelOf(labels, i + 1)) && looks[i + 1].Is(looks[i + 1].Numbers)) {
            // "230905,235207": the texts are a date and a clock only together.
            std::vector<std::u16string> joined;
            for (const auto& row : rows.Cells) {
                if (i + 1 < row.size()) joined.push_back(row[i] + u" " + row[i + 1]);
            }
            const auto style = StyleOf(joined, label, rows, {i, i + 1});
            if (!style) continue;
            recipe.Columns = {i, i + 1};
            recipe.Style = style->Style;
            recipe.IsAbsolute = true;
            const std::size_t before = found.size();
            Consider(recipe, 0.99, rows, found);
            if (found.size() > before) found.back().Order = style->Proof;
        } else if (looks[i].Is(looks[i].Clocks)) {
            recipe.RollsOver = IsClockOfDay(texts[i]);
            Consider(recipe, IsNamedTime(label) ? 0.86 : 0.8, rows, found);
            ConsiderCounted(recipe, rows, found);
        }
    }
}

// Columns without names, side by side: a year, the day of the year or not, month, day, hours, minutes and
// seconds or not. Nothing but the values tells, so all of the first four must fit.
std::vector<PartColumn> PartsByValue(const TableRows& rows) {
    const std::size_t width = WidthOf(rows);
    const auto isWithin = [&](std::size_t column, std::int64_t least, std::int64_t most) {
        const NumberBounds bounds = column < width ? BoundsOf(rows, column) : NumberBounds{false, 0, 0};
        return bounds.IsWhole && bounds.Least >= least && bounds.Most <= most;
    };
    for (std::size_t i = 0; i + 3 < std::min<std::size_t>(width, 12); ++i) {
        if (!isWithin(i, 1970, 2100)) continue;
        std::size_t next = i + 1;
        const bool hasDayOfYear = isWithin(next, 1, 366) && isWithin(next + 1, 1, 12) &&
                                  isWithin(next + 2, 1, 31) && isWithin(next + 3, 0, 24);
        std::vector<PartColumn> parts = {{i, TimePart::Year}};
        // A day of the year and a clock without a colon.
        if (isWithin(next, 1, 366) && !isWithin(next, 1, 31) && isWithin(next + 1, 0, 2400) &&
            !isWithin(next + 1, 0, 24))
            return {{i, TimePart::Year}, {next, TimePart::DayOfYear}, {next + 1, TimePart::HoursMinutes}};
        if (hasDayOfYear) ++next;
        if (!isWithin(next, 1, 12) || !isWithin(next + 1, 1, 31) || !isWithin(next + 2, 0, 24)) continue;
        parts.insert(parts.end(),
                     {{next, TimePart::Month}, {next + 1, TimePart::Day}, {next + 2, TimePart::Hours}});
        if (isWithin(next + 3, 0, 59)) parts.push_back({next + 3, TimePart::Minutes});
        if (parts.size() == 5 && isWithin(next + 4, 0, 60) && BoundsOf(rows, next + 4).Most > 1)
            parts.push_back({next + 4, TimePart::Seconds});
        return parts;
    }
    return {};
}

// Year, month, day and so on in columns of their own, by their names, or without names by their values.
void FindParts(const TableRows& rows, const Labels& labels, std::vector<FoundTimes>& found) {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Parts;
    recipe.IsAbsolute = true;
    std::vector<bool> has(12, false);
    for (std::size_t i = 0; i < WidthOf(rows); ++i) {
        const std::optional<TimePart> part = PartOfName(LabelOf(labels, i));
        if (!part || has[static_cast<std::size_t>(*part)]) continue;
        has[static_cast<std::size_t>(*part)] = true;
        recipe.Parts.push_back({i, *part});
    }
    if (recipe.Parts.empty()) recipe.Parts = PartsByValue(rows);
    for (const PartColumn& part : recipe.Parts) has[static_cast<std::size_t>(part.Part)] = true;
    const auto hasPart = [&](TimePart part) { return has[static_cast<std::size_t>(part)]; };
    const bool isDate = hasPart(TimePart::Year) && (hasPart(TimePart::DayOfYear) ||
                                                    (hasPart(TimePart::Month) && hasPart(TimePart::Day)));
    const bool isWeek = hasPart(TimePart::Week) && hasPart(TimePart::Seconds);
    if (isWeek && !isDate)
        std::erase_if(recipe.Parts, [](const PartColumn& part) {
            return part.Part != TimePart::Week && part.Part != TimePart::Seconds;
        });
    if (isDate)
        std::erase_if(recipe.Parts, [](const PartColumn& part) { return part.Part == TimePart::Week; });
    if (isDate || isWeek) Consider(recipe, 0.99, rows, found);
}

bool IsEpoch(double seconds) {
    constexpr double From = 946'684'800;  // 2000 and 2040
    constexpr double To = 2'208'988'800;
    return seconds >= From && seconds <= To;
}

// "s since 1970", "Seconds since 1970-01-01".
bool IsNamedEpoch(const Label& label) {
    return (label.Name + u" " + label.Unit).find(u"since 1970") != std::u16string::npos;
}

// Numbers that count time.
void FindNumbers(const TableRows& rows, const Labels& labels, const PreambleClues& clues,
                 std::vector<FoundTimes>& found) {
    for (std::size_t i = 0; i < WidthOf(rows); ++i) {
        const std::vector<std::u16string> texts = TextsOf(rows, i);
        if (texts.empty()) continue;
        char16_t mark = u'.';
        std::size_t numbers = 0;
        bool hasFractions = false;
        double first = 0;
        for (const std::u16string& text : texts) {
            std::u16string_view bare = text;
            if (bare.size() > 2 && bare.front() == u'(' && bare.back() == u')')
                bare = bare.substr(1, bare.size() - 2);
            const std::optional<NumberLook> look = LookAtNumber(bare);
            if (!look || look->Thousands != u'\0') continue;
            if (look->Mark != u'\0') mark = look->Mark;
            hasFractions |= look->Mark != u'\0';
            if (numbers++ == 0) first = ValueOf(bare, *look);
        }
        if (10 * numbers < 8 * texts.size()) continue;
        const Label& label = LabelOf(labels, i);
        const std::int64_t unit = UnitNamed(label);
        const bool isTime = IsNamedTime(label);
        const bool isPlace = i == 0 && label.Name.empty();
        TimeRecipe recipe;
        recipe.Kind = TimeKind::Number;
        recipe.Columns = {i};
        recipe.Mark = mark;
        for (const std::int64_t epoch : {Second, Second / 1000, Second / 1'000'000, std::int64_t{1}}) {
            // A measurement that began in 1970 would be longer than any.
            const bool isEpoch = IsEpoch(first * static_cast<double>(epoch) / 1e9) || IsNamedEpoch(label);
            if (!isEpoch || (unit != 0 && unit != epoch)) continue;
            TimeRecipe absolute = recipe;
            absolute.Unit = epoch;
            absolute.IsAbsolute = true;
            absolute.IsUtc = true;
            Consider(absolute, IsNamedEpoch(label) ? 1.03 : 0.98, rows, found);
        }
        // Days of a spreadsheet since 30 December 1899, Julian days since a noon, days of a year whose number
        // is above.
        const auto considerDays = [&](std::int64_t offset, std::int64_t epoch) {
            TimeRecipe days = recipe;
            days.Unit = DayLength;
            days.Offset = offset;
            days.Epoch = epoch;
            days.IsAbsolute = true;
            Consider(days, 0.9, rows, found);
        };
        const bool isDated = (isTime || IsNamedDate(label)) && (unit == 0 || unit == DayLength);
        if (isDated && hasFractions && first > 30'000 && first < 60'000) considerDays(25'569, 0);
        if (hasFractions && first > 2'400'000 && first < 2'500'000) considerDays(2'440'588, DayLength / 2);
        if (clues.Year && hasFractions && first >= 0 && first < 367 && IsDayOfYear(label))
            considerDays(1, DaysSince1970(*clues.Year, 1, 1) * DayLength);
        if (unit == 0 && !isTime && !isPlace) continue;
        recipe.Unit = unit != 0 ? unit : Second;
        const std::size_t before = found.size();
        const double weight = isTime && unit != 0 ? 0.8 : isTime ? 0.75 : unit != 0 ? 0.7 : 0.6;
        Consider(recipe, weight, rows, found);
        if (found.size() == before || unit != 0) continue;
        FoundTimes& times = found.back();
        times.IsUnitNamed = false;
        const std::int64_t counted = times.Trial.MedianStep / Second;
        if (clues.Interval && counted > 0 && *clues.Interval % counted == 0 && hasFractions == false) {
            times.Recipe.Unit = *clues.Interval / counted;
            times.Trial = Try(times.Recipe, rows);
            continue;
        }
        // The unit that makes a usual step. Numbers in the tens of millions that rise by thousands are
        // microseconds, of a bus trace.
        const std::int64_t step = times.Trial.MedianStep;
        if (step >= 1000 * Second && first >= 1e7) {
            times.Recipe.Unit = 1000;
        } else if (step > Second && !hasFractions) {
            times.Recipe.Unit = Second / 1000;
        }
        times.Trial = Try(times.Recipe, rows);
    }
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
}  // namespace

TableRows RowsOf(const FileSample& sample, const FoundTable& table) {
    TableRows rows;
    rows.Width = table.Width;
    LineCutter cut(table.How);
    int others = 0;
    bool isAfterGap = false;
    for (std::size_t i = table.First; i < sample.Lines.size(); ++i) {
        isAfterGap |= sample.Lines[i].IsAfterGap;
        const RowShape& shape = table.Shapes[i];
        if (!shape.LooksLikeData() || (shape.Cells < 2 && table.Width > 1)) {
            // What follows so many other lines belongs to another table.
            constexpr int MostOthers = 5;
            others += shape.Filled != 0;
            if (others > MostOthers && !rows.Cells.empty() && i < sample.Head) break;
            continue;
        }
        others = 0;
        const auto& cells = cut(sample.Lines[i].Text);
        rows.Cells.emplace_back(cells.begin(), cells.end());
        rows.IsAfterGap.push_back(isAfterGap);
        isAfterGap = false;
    }
    return rows;
}

TimeTrial Try(const TimeRecipe& recipe, const TableRows& rows) {
    TimeTrial trial;
    std::vector<std::int64_t> steps;
    std::optional<std::int64_t> before;
    TimeWalk walk(recipe);
    for (std::size_t i = 0; i < rows.Cells.size(); ++i) {
        const std::optional<std::int64_t> time = walk.Next(Views(rows.Cells[i]), rows.Width);
        if (!time) continue;
        if (trial.Read++ == 0) trial.First = *time;
        trial.Last = *time;
        if (before && !rows.IsAfterGap[i]) {
            trial.Rising += *time > *before;
            trial.Equal += *time == *before;
            trial.Falling += *time < *before;
            if (*time > *before) steps.push_back(*time - *before);
        }
        before = time;
    }
    if (!steps.empty()) {
        std::nth_element(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2),
                         steps.end());
        trial.MedianStep = steps[steps.size() / 2];
    }
    return trial;
}

namespace {
// The columns that a recipe reads.
std::vector<std::size_t> ColumnsOf(const TimeRecipe& recipe) {
    std::vector<std::size_t> columns = recipe.Columns;
    for (const PartColumn& part : recipe.Parts) columns.push_back(part.Column);
    return columns;
}

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
}  // namespace

std::optional<FoundTimes> FindTimes(const TableRows& rows, const Labels& labels, const PreambleClues& clues) {
    if (rows.Cells.empty()) return std::nullopt;
    std::vector<FoundTimes> found;
    FindTexts(rows, labels, found);
    FindParts(rows, labels, found);
    FindNumbers(rows, labels, clues, found);
    const FoundTimes* best = nullptr;
    for (const FoundTimes& times : found) {
        const double doubt = times.Order == OrderProof::None ? 0.1 : 0;
        // Scores so close are equal: the column further left is taken, as people do.
        constexpr double Better = 0.02;
        if (best == nullptr || times.Score - doubt > best->Score + Better) best = &times;
    }
    if (best != nullptr) {
        FoundTimes times = *best;
        times.Rival = RivalOf(times, found);
        const std::vector<std::size_t> columns = ColumnsOf(times.Recipe);
        times.IsNamed = std::any_of(columns.begin(), columns.end(),
                                    [&](std::size_t column) { return IsNamedTime(LabelOf(labels, column)); });
        ApplyZones(times, rows);
        return times;
    }
    // No column holds times: rows follow each other at an interval.
    FoundTimes interval;
    interval.Recipe.Kind = TimeKind::Interval;
    interval.Recipe.Unit = clues.Interval.value_or(Second);
    interval.Recipe.Epoch = clues.Interval ? clues.Start.value_or(0) : 0;
    interval.Recipe.IsAbsolute = interval.Recipe.Epoch != 0;
    interval.IsUnitNamed = clues.Interval.has_value();
    interval.Trial = Try(interval.Recipe, rows);
    return interval;
}
}  // namespace kelvarin::plan
