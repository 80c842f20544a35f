#include "host/plan/SameMinute.h"

#include <algorithm>

#include "host/plan/Durations.h"
#include "platform/framework/Text.h"

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
    // The last hour of a day has no seconds: "24:00:00".
    if (text.substr(0, colon).ends_with(u"24")) return std::nullopt;
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
    found.LastDigit = scale;
    return found;
}
}  // namespace

void SameMinute::Take(std::u16string_view text) {
    Text = text;
    Place = SecondsIn(text);
}

std::optional<std::int64_t> SameMinute::SecondsMore(std::u16string_view text) const {
    if (text.size() != Text.size() || text.empty()) return std::nullopt;
    if (!Place) return text == Text ? std::optional<std::int64_t>(0) : std::nullopt;
    const std::size_t fraction = Place->Begin + 2;
    const char16_t* const known = Text.data();
    const char16_t* const next = text.data();
    if (!std::equal(known, known + Place->Begin, next)) return std::nullopt;
    if (!std::equal(known + Place->End, known + Text.size(), next + Place->End)) return std::nullopt;
    if (fraction < Place->End && text[fraction] != Text[fraction]) return std::nullopt;
    std::int64_t number = 0;
    for (std::size_t at = Place->Begin; at < Place->End; ++at) {
        if (at == fraction) continue;
        if (!IsDigit(text[at])) return std::nullopt;
        number = 10 * number + (text[at] - u'0');
    }
    constexpr char16_t MostTens = u'5';
    if (text[Place->Begin] > MostTens) return std::nullopt;
    return number * Place->LastDigit - Place->Value;
}
}  // namespace kelvarin::plan
