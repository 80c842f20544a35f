#include "host/plan/DateStyle.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/plan/Durations.h"
#include "host/plan/SameMinute.h"
#include "host/plan/TimeNames.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
using TextList = std::vector<std::u16string_view>;

struct TriedStyle {
    TimeStyle Style;
    std::size_t Read = 0;  // texts
    TimeTrial Trial;
};

// The times of a text as written, in ns, by DateOrder.
using WrittenTimes = std::array<std::optional<std::int64_t>, 3>;

WrittenTimes WrittenIn(const std::array<std::optional<ParsedTime>, 3>& times) {
    WrittenTimes written;
    for (std::size_t order = 0; order < times.size(); ++order) {
        if (times.at(order)) written.at(order) = times.at(order)->Written();
    }
    return written;
}

std::vector<WrittenTimes> TimesOf(const TextList& texts, int year) {
    std::vector<WrittenTimes> all;
    SameMinute minute;
    WrittenTimes known;
    for (const std::u16string_view text : texts) {
        std::optional<std::int64_t> more = minute.SecondsMore(text);
        if (!more) {
            known = WrittenIn(ParseInEachOrder(text, year));
            const bool isTime = known != WrittenTimes();
            minute.Take(isTime ? text : std::u16string_view());
            more = 0;
        }
        all.push_back(known);
        for (std::optional<std::int64_t>& time : all.back()) {
            if (time) *time += *more;
        }
    }
    return all;
}

std::size_t IndexOf(const TriedStyle& style) {
    return static_cast<std::size_t>(style.Style.Order);
}

std::vector<TriedStyle> TryOrders(const std::vector<WrittenTimes>& times, int year) {
    std::vector<TriedStyle> tried;
    for (const DateOrder order : {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}) {
        TriedStyle one{{order, false, false, year}, 0, {}};
        for (const WrittenTimes& time : times) one.Read += time.at(IndexOf(one)).has_value();
        tried.push_back(one);
    }
    return tried;
}

bool AreSame(const std::vector<TriedStyle>& tried, const std::vector<WrittenTimes>& times) {
    return std::all_of(times.begin(), times.end(), [&](const WrittenTimes& time) {
        return std::all_of(tried.begin() + 1, tried.end(), [&](const TriedStyle& one) {
            return time.at(IndexOf(one)) == time.at(IndexOf(tried[0]));
        });
    });
}

// Leaves of orders that read all texts the same the first: a text that begins with no year may read the same
// in two.
void DropRepeated(std::vector<TriedStyle>& tried, const std::vector<WrittenTimes>& times) {
    for (std::size_t i = 1; i < tried.size();) {
        const bool isRepeated = std::any_of(tried.begin(), tried.begin() + static_cast<std::ptrdiff_t>(i),
                                            [&](const TriedStyle& one) {
                                                return AreSame({one, tried[i]}, times);
                                            });
        if (isRepeated) {
            tried.erase(tried.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
}

// Numbers of one digit between strokes, or a clock of twelve hours after them.
bool AreAmerican(const TextList& texts) {
    return std::any_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        const bool isUnpadded = text.size() > 4 && (text[1] == u'/' || (text[2] == u'/' && text[4] == u'/'));
        return isUnpadded ||
               (text.find(u'/') != text.npos && (text.ends_with(u"AM") || text.ends_with(u"PM")));
    });
}

// Two points before any colon: "04.05.2023 10:00".
bool AreDotted(const TextList& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        const std::u16string_view date = text.substr(0, text.find(u':'));
        return std::count(date.begin(), date.end(), u'.') == 2;
    });
}

// Six digits without marks: "230905 235207".
bool AreBareDigits(const TextList& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::u16string_view text) {
        const std::u16string_view date = text.substr(0, text.find(u' '));
        return date.size() == 6 && std::all_of(date.begin(), date.end(), IsDigit);
    });
}

// The order that people use for dates that look so, where nothing proves another.
std::optional<DateOrder> CustomOf(const TextList& texts) {
    if (AreAmerican(texts)) return DateOrder::MonthFirst;
    if (AreDotted(texts)) return DateOrder::DayFirst;
    return std::nullopt;
}

// True for steps of a day where others are a month, and rows that rise where others jump.
bool IsSteadier(const TriedStyle& a, const TriedStyle& b) {
    const std::size_t disorderA = std::min(a.Trial.Rising, a.Trial.Falling);
    const std::size_t disorderB = std::min(b.Trial.Rising, b.Trial.Falling);
    if (disorderA != disorderB) return disorderA < disorderB;
    const double spanA = std::abs(static_cast<double>(a.Trial.Last) - static_cast<double>(a.Trial.First));
    const double spanB = std::abs(static_cast<double>(b.Trial.Last) - static_cast<double>(b.Trial.First));
    return 2 * spanA < spanB;
}

// Without any custom: the order that makes the dates the latest by years, since most files are of these
// years; digits without marks rather begin with the year.
std::optional<DateOrder> LikelyOrder(const std::vector<TriedStyle>& tried, const TextList& texts) {
    constexpr std::int64_t ManyYears = 5 * 366 * DayLength;
    constexpr std::int64_t FirstYears = 61 * 366 * DayLength;  // none is in the future
    const TriedStyle* latest = &tried.front();
    for (const TriedStyle& one : tried) {
        if (one.Trial.Last < FirstYears && one.Trial.Last > latest->Trial.Last + ManyYears) latest = &one;
    }
    if (latest != &tried.front()) return latest->Style.Order;
    return AreBareDigits(texts) ? std::optional(DateOrder::YearFirst) : std::nullopt;
}

// The style that makes the rows follow each other best; the first of those as good.
DateStyle SteadiestOf(std::vector<TriedStyle> tried, const TableRows& rows,
                      const std::vector<std::size_t>& columns, const TextList& texts) {
    for (TriedStyle& one : tried) {
        TimeRecipe recipe;
        recipe.Columns = columns;
        recipe.Style = one.Style;
        recipe.IsAbsolute = true;
        one.Trial = Try(recipe, rows);
    }
    const std::optional<DateOrder> custom = CustomOf(texts);
    const std::optional<DateOrder> first = custom ? custom : LikelyOrder(tried, texts);
    std::stable_partition(tried.begin(), tried.end(),
                          [&](const TriedStyle& one) { return one.Style.Order == first; });
    std::stable_sort(tried.begin(), tried.end(), IsSteadier);
    const TimeStyle& best = tried[0].Style;
    if (IsSteadier(tried[0], tried[1])) return {best, OrderProof::Steps};
    return {best, custom == best.Order ? OrderProof::Custom : OrderProof::None};
}
}  // namespace

std::optional<DateStyle> FindDateStyle(const TextList& texts, const std::vector<std::u16string>& names,
                                       const TableRows& rows, const std::vector<std::size_t>& columns,
                                       int year) {
    // The year is needed only where the texts are no times without it.
    const bool needsYear = std::none_of(
        texts.begin(), texts.end(), [](const auto& text) { return ParseInAnyOrder(text, 0).has_value(); });
    if (!needsYear) year = 0;
    const std::vector<WrittenTimes> times = TimesOf(texts, year);
    std::vector<TriedStyle> tried = TryOrders(times, year);
    const std::size_t most = std::max({tried[0].Read, tried[1].Read, tried[2].Read});
    if (most == 0) return std::nullopt;
    if (AreSame(tried, times)) return DateStyle{tried[0].Style, OrderProof::Unneeded};
    std::erase_if(tried, [most](const TriedStyle& one) { return one.Read < most; });
    DropRepeated(tried, times);
    if (const std::optional<DateOrder> named = OrderIn(names); named && tried.size() > 1) {
        for (const TriedStyle& one : tried) {
            if (one.Style.Order == *named) return DateStyle{one.Style, OrderProof::Name};
        }
    }
    if (tried.size() == 1 || AreSame(tried, times)) return DateStyle{tried[0].Style, OrderProof::Texts};
    return SteadiestOf(std::move(tried), rows, columns, texts);
}
}  // namespace kelvarin::plan
