#include "host/plan/TimeGroups.h"

#include <algorithm>

#include "host/plan/Durations.h"
#include "host/plan/TimeWords.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
using namespace std::string_view_literals;

std::u16string_view WithoutEnclosure(std::u16string_view text) {
    text = TrimWhiteSpace(text);
    if (text.starts_with(u'=')) text.remove_prefix(1);  // ="..." keeps a spreadsheet from reading the text
    while (text.size() >= 2) {
        const std::size_t kind = std::u16string_view(u"(['\"<").find(text.front());
        if (kind == std::u16string_view::npos || text.back() != u")]'\">"[kind]) break;
        text = TrimWhiteSpace(text.substr(1, text.size() - 2));
    }
    return text;
}

// Of any script that times are written in.
bool IsWordLetter(char16_t c) {
    const bool isGreekOrCyrillic = c >= 0x370 && c < 0x530;
    return IsLetter(c) || isGreekOrCyrillic || (c >= 0x4E00 && c < 0xA000) || (c >= 0xAC00 && c < 0xD7A4);
}
}  // namespace

DayHalf HalfOfName(std::u16string_view word) {
    constexpr std::u16string_view Mornings = u" am a 오전 上午 午前 πμ ";
    constexpr std::u16string_view Afternoons = u" pm p 오후 下午 午後 μμ ";
    const std::u16string low = Lowered(word);
    if (IsListed(Mornings, low)) return DayHalf::Morning;
    return IsListed(Afternoons, low) ? DayHalf::Afternoon : DayHalf::Unnamed;
}

namespace {
// Takes one text apart; an object a text.
class TimeCutter {
  public:
    // False for a text that is no time.
    bool Cut(std::u16string_view text) {
        All.Groups.reserve(MostGroups);
        for (std::size_t at = 0; at < text.size();) {
            const char16_t c = text[at];
            if (IsDigit(c)) {
                if (!TakeDigits(text, at)) return false;
                continue;
            }
            std::size_t end = at + 1;
            if (IsWordLetter(c)) {
                while (end < text.size() && IsWordLetter(text[end])) ++end;
                if (!TakeWord(text.substr(at, end - at), text, end)) return false;
                Marks.clear();
                HasBlank = true;
            } else if (c == u'.' && IsAfterFiller) {
                IsAfterFiller = false;
            } else if (IsWhiteSpace(c) || c == 0xA0 || c == u'_' || c == u'|') {
                HasBlank = true;
            } else if (std::u16string_view(u".,:/-+'\"").find(c) != std::u16string_view::npos) {
                Marks += c;
            } else {
                return false;
            }
            at = end;
        }
        return Marks.empty() || Marks == u"."sv || Marks == u","sv;
    }

    TimeGroups All;

  private:
    static constexpr std::size_t MostGroups = 9;

    // A run of digits: a group, or a zone.
    bool TakeDigits(std::u16string_view text, std::size_t& at) {
        constexpr std::size_t MostDigits = 18;
        std::size_t end = at;
        while (end < text.size() && IsDigit(text[end])) ++end;
        if (end - at > MostDigits || All.Groups.size() == MostGroups) return false;
        if (IsZoneAhead(Marks)) {
            if (!ReadZone(Marks, text, at)) return false;
            end = ZoneEnd;
        } else {
            if (IsHourMarked) Marks = u":";
            All.Groups.push_back({text.substr(at, end - at), Marks, HasBlank && !IsHourMarked});
            HasBlank = false;
            IsHourMarked = false;
        }
        Marks.clear();
        at = end;
        return true;
    }

    // A sign after a clock begins a zone; in "2019-12-03-09-01" the marks are those of a date.
    bool IsZoneAhead(const std::u16string& marks) const {
        if (marks != u"+"sv && marks != u"-"sv && marks != u":+"sv) return false;
        if (HasZoneWord) return true;
        return std::any_of(All.Groups.begin(), All.Groups.end(),
                           [](const DigitGroup& group) { return group.Before == u":"sv; }) ||
               (HasT && marks == u"+"sv);
    }

    bool ReadZone(const std::u16string& marks, std::u16string_view text, std::size_t at) {
        std::size_t digits = at;
        while (digits < text.size() && IsDigit(text[digits])) ++digits;
        int hours = 0;
        int minutes = 0;
        const auto numberOf = [&](std::size_t from, std::size_t count) {
            int number = 0;
            for (std::size_t i = from; i < from + count; ++i) number = 10 * number + (text[i] - u'0');
            return number;
        };
        ZoneEnd = digits;
        if (digits - at == 4) {
            hours = numberOf(at, 2);
            minutes = numberOf(at + 2, 2);
        } else if (digits - at <= 2) {
            hours = numberOf(at, digits - at);
            const bool hasMinutes = digits + 2 < text.size() && text[digits] == u':' &&
                                    IsDigit(text[digits + 1]) && IsDigit(text[digits + 2]);
            if (hasMinutes) {
                minutes = numberOf(digits + 1, 2);
                ZoneEnd = digits + 3;
            }
        } else {
            return false;
        }
        if (hours > 14 || minutes > 59) return false;
        All.ZoneMinutes = (marks.back() == u'-' ? -1 : 1) * (60 * hours + minutes);
        return true;
    }

    // Takes a word that times are written with; false for any other.
    bool TakeWord(std::u16string_view word, std::u16string_view text, std::size_t end) {
        const bool isBetweenDigits = end < text.size() && IsDigit(text[end]) && !All.Groups.empty();
        if (EqualsIgnoreCase(word, u"T")) {
            HasT = true;
            return isBetweenDigits;
        }
        if (const DayHalf half = HalfOfName(word); half != DayHalf::Unnamed) {
            // "a.m." comes in two words
            if (All.Half != DayHalf::Unnamed) return false;
            All.Half = half;
            return true;
        }
        if (isBetweenDigits && TakePeriod(word)) return true;
        if (All.Half != DayHalf::Unnamed && EqualsIgnoreCase(word, u"m") && word.size() == 1) return true;
        if (const int month = MonthOfName(word); month != 0 && All.Month == 0) {
            All.Month = month;
            return true;
        }
        if (IsDayOfWeek(word)) return true;
        if (const std::optional<int> zone = ZoneOfName(word); zone && !All.Groups.empty()) {
            All.ZoneMinutes = zone;
            HasZoneWord = true;
            return true;
        }
        // "01h00" after a date
        if (EqualsIgnoreCase(word, u"h") && isBetweenDigits &&
            All.Month + static_cast<int>(All.Groups.size()) > 1) {
            IsHourMarked = true;
            return true;
        }
        constexpr std::u16string_view Fillers = u" uhr at um kl klo kello г года ";
        if (IsListed(Fillers, Lowered(word))) {
            IsAfterFiller = true;  // "kl. 10.20"
            return true;
        }
        if (TakeUnit(word)) return true;
        // "25.03.2024 г. 00:00": an abbreviation in another language, between a date and a clock.
        constexpr std::size_t LongestShort = 3;
        IsAfterFiller = All.Groups.size() == 3 && word.size() <= LongestShort && end + 2 < text.size() &&
                        text[end] == u'.' && IsWhiteSpace(text[end + 1]) && IsDigit(text[end + 2]);
        return IsAfterFiller;
    }

    // "2024-W10", "1992M01", "2024-Q1": a letter after a year.
    bool TakePeriod(std::u16string_view word) {
        const bool isLetter = word == u"W" || word == u"M" || word == u"Q";
        if (!isLetter || All.Groups.size() != 1 || All.Groups[0].Length() != 4) return false;
        if (!Marks.empty() && Marks != u"-"sv) return false;
        All.Period = word[0];
        return true;
    }

    // "3d", "2h": the group before is an amount of a span.
    bool TakeUnit(std::u16string_view word) {
        const std::int64_t unit = UnitOfTime(word);
        constexpr std::int64_t MostDays = 36'500;
        if (unit == 0 || All.Groups.empty() || All.Groups.size() > 2) return false;
        std::int64_t amount = 0;
        if (All.Groups.size() == 2) {
            // A fraction: "2.5 s".
            const DigitGroup& fraction = All.Groups.back();
            if ((fraction.Before != u"."sv && fraction.Before != u","sv) || fraction.AfterBlank) return false;
            if (fraction.Length() > 9) return false;
            std::int64_t scale = 1;
            for (std::size_t i = 0; i < fraction.Length(); ++i) scale *= 10;
            // In two parts, since their product has up to 80 bits.
            amount = unit / scale * fraction.Number() + unit % scale * fraction.Number() / scale;
        }
        if (All.Groups.front().Number() > MostDays * (DayLength / unit)) return false;
        All.Span += All.Groups.front().Number() * unit + amount;
        All.IsSpan = true;
        All.Groups.clear();
        return true;
    }

    std::u16string Marks;  // since the last group
    std::size_t ZoneEnd = 0;
    bool HasBlank = false;  // since the last group, or a word
    bool HasT = false;
    bool HasZoneWord = false;
    bool IsHourMarked = false;   // the next group follows an h
    bool IsAfterFiller = false;  // a point may end the word
};
}  // namespace

std::optional<TimeGroups> CutTimeText(std::u16string_view text) {
    TimeCutter cutter;
    if (!cutter.Cut(WithoutEnclosure(text))) return std::nullopt;
    return std::move(cutter.All);
}
}  // namespace kelvarin::plan
