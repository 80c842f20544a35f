#include "host/plan/MinuteMemo.h"

#include <algorithm>

#include "host/plan/TimeRecipe.h"
#include "platform/framework/Text.h"

#include "host/plan/Durations.h"

namespace kelvarin::plan {
namespace {
// Two digits and a colon, twice, or one digit in the first place: not four digits, which are a year.
bool IsClockAt(std::u16string_view text, std::size_t colon) {
    const auto isDigit = [&](std::size_t at) { return at < text.size() && IsDigit(text[at]); };
    if (colon == 0 || !isDigit(colon - 1)) return false;
    if (!isDigit(colon + 1) || !isDigit(colon + 2) || text[colon + 3] != u':') return false;
    if (!isDigit(colon + 4) || !isDigit(colon + 5) || isDigit(colon + 6)) return false;
    const std::size_t before = colon >= 2 && isDigit(colon - 2) ? 2 : 1;
    if (colon == before) return true;
    const char16_t mark = text[colon - before - 1];
    return !IsDigit(mark) && mark != u':';
}

// Nothing for a text in which no clock has whole seconds from 0 to 59.
std::optional<ClockSeconds> SecondsIn(std::u16string_view text) {
    constexpr std::size_t ToSeconds = 4;  // from the first colon
    constexpr std::size_t Least = ToSeconds + 2;
    std::size_t colon = text.find(u':');
    while (colon != text.npos && colon + Least <= text.size() && !IsClockAt(text, colon))
        colon = text.find(u':', colon + 1);
    if (colon == text.npos || colon + Least > text.size()) return std::nullopt;
    ClockSeconds found{colon + ToSeconds, colon + Least, 0};
    found.Value = ((text[found.Begin] - u'0') * 10 + (text[found.Begin + 1] - u'0')) * Second;
    if (found.Value >= 60 * Second) return std::nullopt;
    if (found.End == text.size()) return found;
    if (text[found.End] == u':') return std::nullopt;
    if (text[found.End] != u'.' && text[found.End] != u',') return found;
    std::int64_t scale = Second;
    for (++found.End; found.End < text.size() && IsDigit(text[found.End]); ++found.End) {
        scale /= 10;
        if (scale == 0) return std::nullopt;
        found.Value += (text[found.End] - u'0') * scale;
    }
    return found;
}
}  // namespace

bool MinuteMemo::Knows(std::u16string_view date, std::u16string_view text,
                       const ClockSeconds& seconds) const {
    const std::u16string_view known = Text;
    return text.size() == known.size() && seconds.Begin == Place.Begin && seconds.End == Place.End &&
           known.substr(0, seconds.Begin) == text.substr(0, seconds.Begin) &&
           known.substr(seconds.End) == text.substr(seconds.End) && date == Date;
}

std::optional<std::int64_t> MinuteMemo::TimeOf(const TimeRecipe& recipe,
                                               const std::vector<std::u16string_view>& cells) {
    const bool isPlain = recipe.Kind == TimeKind::Text && recipe.Columns.size() <= 2 &&
                         !recipe.Style.BeginsWithMinutes && !recipe.Style.FractionIsCounted &&
                         std::all_of(recipe.Columns.begin(), recipe.Columns.end(),
                                     [&](std::size_t column) { return column < cells.size(); });
    if (!isPlain) return recipe.TimeOf(cells);
    const std::u16string_view text = cells[recipe.Columns.back()];
    const std::u16string_view date = recipe.Columns.size() > 1 ? cells[recipe.Columns.front()] : u"";
    const std::optional<ClockSeconds> seconds = SecondsIn(text);
    if (seconds && Knows(date, text, *seconds)) return Time + seconds->Value - Place.Value;
    const std::optional<std::int64_t> time = recipe.TimeOf(cells);
    if (!time || !seconds) return time;
    Text = text;
    Date = date;
    Place = *seconds;
    Time = *time;
    return time;
}
}  // namespace kelvarin::plan
