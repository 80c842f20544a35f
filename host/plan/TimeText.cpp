#include "host/plan/TimeText.h"

#include <algorithm>

#include "host/plan/Calendar.h"
#include "host/plan/Durations.h"
#include "host/plan/TimeGroups.h"
#include "host/plan/TimeReader.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
bool MayBeTime(std::u16string_view text) {
    constexpr std::size_t Longest = 64;
    return text.size() <= Longest && std::any_of(text.begin(), text.end(), IsDigit);
}

// The length of a mark between two times, or 0.
std::size_t MarkBetweenTimes(std::u16string_view text) {
    if (text.front() == u'/') return 1;
    if (text.front() != u' ') return 0;
    for (const std::u16string_view mark : {u" to ", u" - ", u" bis "}) {
        if (text.starts_with(mark)) return mark.size();
    }
    return 0;
}

// Two times may be from and to: the row belongs to the first.
std::optional<ParsedTime> ReadFirstTime(const std::optional<TimeGroups>& cut, std::u16string_view text,
                                        const TimeStyle& style) {
    if (std::optional<ParsedTime> time = ReadTime(cut, style)) return time;
    constexpr std::size_t Shortest = 8;
    for (std::size_t at = Shortest; at + Shortest <= text.size(); ++at) {
        const std::size_t length = MarkBetweenTimes(text.substr(at));
        if (length == 0) continue;
        std::optional<ParsedTime> from = ReadTime(CutTimeText(text.substr(0, at)), style);
        if (from && ReadTime(CutTimeText(text.substr(at + length)), style)) return from;
    }
    return std::nullopt;
}
}  // namespace

std::int64_t ParsedTime::Written() const {
    return (HasDate ? DaysSince1970(Year, Month, Day) * DayLength : 0) + Clock;
}

std::optional<ParsedTime> ParseTime(std::u16string_view text, const TimeStyle& style) {
    if (!MayBeTime(text)) return std::nullopt;
    return ReadFirstTime(CutTimeText(text), text, style);
}

std::optional<ParsedTime> ParseInAnyOrder(std::u16string_view text, int year) {
    if (!MayBeTime(text)) return std::nullopt;
    const std::optional<TimeGroups> cut = CutTimeText(text);
    for (const DateOrder order : {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}) {
        if (std::optional<ParsedTime> time = ReadFirstTime(cut, text, {order, false, false, year}))
            return time;
    }
    return std::nullopt;
}

std::array<std::optional<ParsedTime>, 3> ParseInEachOrder(std::u16string_view text, int year) {
    std::array<std::optional<ParsedTime>, 3> times;
    if (!MayBeTime(text)) return times;
    const std::optional<TimeGroups> cut = CutTimeText(text);
    for (const DateOrder order : {DateOrder::YearFirst, DateOrder::DayFirst, DateOrder::MonthFirst})
        times.at(static_cast<std::size_t>(order)) = ReadFirstTime(cut, text, {order, false, false, year});
    return times;
}
}  // namespace kelvarin::plan
