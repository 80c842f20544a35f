#include "host/plan/TimeText.h"

#include <algorithm>
#include <vector>

#include "host/plan/Durations.h"
#include "host/plan/TimeWords.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// A run of digits, and what is between it and the run before: marks without blanks, "" for blanks alone.
struct Group {
    std::u16string_view Digits;
    std::u16string Before;
    bool AfterBlank = false;  // or after a letter T, or a word

    std::int64_t Number() const {
        std::int64_t number = 0;
        for (const char16_t c : Digits) number = 10 * number + (c - u'0');
        return number;
    }
    std::size_t Length() const { return Digits.size(); }
};

int DaysOfMonth(int year, int month) {
    constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && isLeap ? 29 : Days[month - 1];
}

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

// Reads one text; an object a text.
class TimeReader {
  public:
    explicit TimeReader(const TimeStyle& style) : Style(style) {}

    std::optional<ParsedTime> Read(std::u16string_view text) {
        if (!Cut(WithoutEnclosure(text))) return std::nullopt;
        if (Time.IsSpan && Groups.empty()) return Time;
        if (Groups.empty() || !ReadDate() || !ReadClock() || At != Groups.size()) return std::nullopt;
        if (!Time.HasDate && !Time.HasClock) return std::nullopt;
        return ApplyHalf() ? std::optional(Time) : std::nullopt;
    }

  private:
    // Cuts a text into groups of digits; takes the words out of it. False for a text that is no time.
    bool Cut(std::u16string_view text) {
        constexpr std::size_t MostGroups = 9;
        std::u16string marks;
        bool hasBlank = false;
        for (std::size_t at = 0; at < text.size();) {
            const char16_t c = text[at];
            std::size_t end = at + 1;
            if (IsDigit(c)) {
                while (end < text.size() && IsDigit(text[end])) ++end;
                if (end - at > 18 || Groups.size() == MostGroups) return false;
                if (IsZoneAhead(marks, text, at)) {
                    if (!ReadZone(marks, text, at)) return false;
                    at = ZoneEnd;
                    marks.clear();
                    continue;
                }
                if (IsHourMarked) marks = u":";
                Groups.push_back({text.substr(at, end - at), marks, hasBlank && !IsHourMarked});
                marks.clear();
                hasBlank = false;
                IsHourMarked = false;
            } else if (IsLetter(c)) {
                while (end < text.size() && IsLetter(text[end])) ++end;
                if (!TakeWord(text.substr(at, end - at), text, end)) return false;
                marks.clear();
                hasBlank = true;
            } else if (IsWhiteSpace(c) || c == 0xA0 || c == u'_' || c == u'|') {
                hasBlank = true;
            } else if (std::u16string_view(u".,:/-+'\"").find(c) != std::u16string_view::npos) {
                marks += c;
            } else {
                return false;
            }
            at = end;
        }
        return marks.empty() || marks == u"." || marks == u",";
    }

    // A sign after a clock begins a zone; in "2019-12-03-09-01" the marks are those of a date.
    bool IsZoneAhead(const std::u16string& marks, std::u16string_view, std::size_t) const {
        if (marks != u"+" && marks != u"-" && marks != u":+") return false;
        if (HasZoneWord) return true;
        return std::any_of(Groups.begin(), Groups.end(),
                           [](const Group& group) { return group.Before == u":"; }) ||
               (HasT && marks == u"+");
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
        Time.ZoneMinutes = (marks.back() == u'-' ? -1 : 1) * (60 * hours + minutes);
        return true;
    }

    // Takes a word that times are written with; false for any other.
    bool TakeWord(std::u16string_view word, std::u16string_view text, std::size_t end) {
        const bool isBetweenDigits = end < text.size() && IsDigit(text[end]) && !Groups.empty();
        if (EqualsIgnoreCase(word, u"T")) {
            HasT = true;
            return isBetweenDigits;
        }
        if (EqualsIgnoreCase(word, u"AM") || EqualsIgnoreCase(word, u"PM") || EqualsIgnoreCase(word, u"a") ||
            EqualsIgnoreCase(word, u"p")) {
            // "a.m." comes in two words
            if (Half != 0) return false;
            Half = EqualsIgnoreCase(word.substr(0, 1), u"a") ? 1 : 2;
            return true;
        }
        if (Half != 0 && EqualsIgnoreCase(word, u"m") && word.size() == 1) return true;
        if (const int month = MonthOfName(word); month != 0 && Time.Month == 0) {
            Time.Month = month;
            MonthAt = Groups.size();
            return true;
        }
        if (IsDayOfWeek(word)) return true;
        if (const std::optional<int> zone = ZoneOfName(word); zone && !Groups.empty()) {
            Time.ZoneMinutes = zone;
            HasZoneWord = true;
            return true;
        }
        // "01h00" after a date
        if (EqualsIgnoreCase(word, u"h") && isBetweenDigits &&
            Time.Month + static_cast<int>(Groups.size()) > 1) {
            IsHourMarked = true;
            return true;
        }
        if (EqualsIgnoreCase(word, u"Uhr") || EqualsIgnoreCase(word, u"at") || EqualsIgnoreCase(word, u"um"))
            return true;
        return TakeUnit(word);
    }

    // "3d", "2h": the group before is an amount of a span.
    bool TakeUnit(std::u16string_view word) {
        const std::int64_t unit = UnitOfTime(word);
        constexpr std::int64_t MostDays = 36'500;
        if (unit == 0 || Groups.empty() || Groups.size() > 2) return false;
        std::int64_t amount = 0;
        if (Groups.size() == 2) {
            // A fraction: "2.5 s".
            const Group& fraction = Groups.back();
            if ((fraction.Before != u"." && fraction.Before != u",") || fraction.AfterBlank) return false;
            if (fraction.Length() > 9) return false;
            std::int64_t scale = 1;
            for (std::size_t i = 0; i < fraction.Length(); ++i) scale *= 10;
            // In two parts, since their product has up to 80 bits.
            amount = unit / scale * fraction.Number() + unit % scale * fraction.Number() / scale;
        }
        if (Groups.front().Number() > MostDays * (DayLength / unit)) return false;
        Time.Clock += Groups.front().Number() * unit + amount;
        Time.IsSpan = true;
        Time.HasClock = true;
        Groups.clear();
        return true;
    }

    const Group& Next() const { return Groups[At]; }
    std::size_t Left() const { return Groups.size() - At; }

    bool SetDate(std::int64_t year, std::size_t digits, std::int64_t month, std::int64_t day) {
        if (digits == 2) year += year < 70 ? 2000 : 1900;
        if (digits == 1 || digits == 3 || year < 1900 || year > 2200 || month < 1 || month > 12) return false;
        if (day < 1 || day > DaysOfMonth(static_cast<int>(year), static_cast<int>(month))) return false;
        Time.HasDate = true;
        Time.Year = static_cast<int>(year);
        Time.Month = static_cast<int>(month);
        Time.Day = static_cast<int>(day);
        return true;
    }

    bool SetDate(const Group& year, std::int64_t month, const Group& day) {
        return day.Length() <= 2 && SetDate(year.Number(), year.Length(), month, day.Number());
    }

    // The date, if the text begins with one or names a month; false for an impossible one.
    bool ReadDate() {
        if (Time.IsSpan) return true;
        if (Time.Month != 0) return ReadNamedMonth();
        const Group& first = Next();
        if (first.Length() >= 6) return ReadCompact(first);
        if (Left() < 3) return true;
        const Group& second = Groups[At + 1];
        const Group& third = Groups[At + 2];
        const bool isColoned = second.Before == u":";
        if (isColoned && first.Length() != 4) return true;
        if (second.AfterBlank != third.AfterBlank || (!isColoned && second.Before == u":")) return true;
        if (second.Before != third.Before) return IsClockOfMarks() || second.Before == u":";
        if (second.Before == u"." && !Style.BeginsWithMinutes && third.Length() == 3) return true;
        At += 3;
        if (first.Length() == 4 || first.Number() > 31) return SetDate(first, second.Number(), third);
        if (third.Length() != 4 && Style.Order == DateOrder::YearFirst)
            return SetDate(first, second.Number(), third);
        if (second.Length() > 2) return false;
        return Style.Order == DateOrder::MonthFirst ? SetDate(third, first.Number(), second)
                                                    : SetDate(third, second.Number(), first);
    }

    // "12.30,5": not a date.
    bool IsClockOfMarks() const { return Left() >= 3 && Groups[At + 1].Before != Groups[At + 2].Before; }

    // A number of digits only: YYYYMMDD, YYYYMMDDhhmm(ss), or six digits by the order.
    bool ReadCompact(const Group& group) {
        const std::u16string_view digits = group.Digits;
        const auto part = [&](std::size_t from, std::size_t count) {
            return Group{digits.substr(from, count), {}, false};
        };
        const bool isAlone = Left() == 1;
        switch (digits.size()) {
            case 6:
                // A date where a clock follows; alone it is left to the numbers' own reading.
                if (isAlone && At == 0) return true;
                if (Left() >= 2 && (Groups[At + 1].Before == u"." || Groups[At + 1].Before == u","))
                    return true;
                ++At;
                if (Style.Order == DateOrder::YearFirst)
                    return SetDate(part(0, 2), part(2, 2).Number(), part(4, 2));
                return Style.Order == DateOrder::DayFirst
                           ? SetDate(part(4, 2), part(2, 2).Number(), part(0, 2))
                           : SetDate(part(4, 2), part(0, 2).Number(), part(2, 2));
            case 8:
            case 10:
            case 12:
            case 14:
            case 17: {
                ++At;
                const bool yearLast = Style.Order != DateOrder::YearFirst && digits.size() == 8 &&
                                      (part(0, 4).Number() < 1900 || part(0, 4).Number() > 2200);
                const bool isDate = !yearLast ? SetDate(part(0, 4), part(4, 2).Number(), part(6, 2))
                                    : Style.Order == DateOrder::DayFirst
                                        ? SetDate(part(4, 4), part(2, 2).Number(), part(0, 2))
                                        : SetDate(part(4, 4), part(0, 2).Number(), part(2, 2));
                if (!isDate) return false;
                if (digits.size() == 8) return true;
                const std::int64_t seconds = digits.size() >= 14 ? part(12, 2).Number() : 0;
                const std::int64_t minutes = digits.size() >= 12 ? part(10, 2).Number() : 0;
                if (!SetClock(part(8, 2).Number(), minutes, seconds)) return false;
                if (digits.size() == 17) Time.Clock += part(14, 3).Number() * (Second / 1000);
                return ReadFraction();
            }
            default:
                return false;
        }
    }

    // Day and year stand around the name of the month, or after it.
    bool ReadNamedMonth() {
        // The clock's groups follow each other by colons.
        std::vector<Group> dates;
        std::vector<Group> clock;
        for (std::size_t i = 0; i < Groups.size(); ++i) {
            const bool isClock =
                Groups[i].Before == u":" || (i + 1 < Groups.size() && Groups[i + 1].Before == u":") ||
                (!clock.empty() && i > 0 && !Groups[i].AfterBlank &&
                 (Groups[i].Before == u"." || Groups[i].Before == u",") && Groups[i - 1].Before == u":");
            (isClock ? clock : dates).push_back(Groups[i]);
        }
        if (dates.size() != 2) return false;
        const bool yearFirst = dates[0].Length() == 4 || dates[0].Number() > 31;
        if (!SetDate(dates[yearFirst ? 0 : 1], Time.Month, dates[yearFirst ? 1 : 0])) return false;
        Groups = std::move(clock);
        At = 0;
        return true;
    }

    bool SetClock(std::int64_t hours, std::int64_t minutes, std::int64_t seconds) {
        constexpr std::int64_t MostHours = 24 * 36'500;
        const bool isPartOfDay = Time.HasDate || Half != 0;
        if (hours > (isPartOfDay ? 24 : MostHours) || minutes > 59 || seconds > 60) return false;
        if (isPartOfDay && hours == 24 && (minutes != 0 || seconds != 0)) return false;
        Time.Clock += hours * Hour + minutes * Minute + seconds * Second;
        Time.HasClock = true;
        return true;
    }

    // Digits after a point or a comma, or counted milliseconds.
    bool ReadFraction() {
        if (Left() == 0) return true;
        const Group& group = Next();
        const bool isMarked = group.Before == u"." || group.Before == u"," || group.Before == u":";
        if (!isMarked || group.AfterBlank) return false;
        std::int64_t number = 0;
        if (Style.FractionIsCounted && group.Length() <= 3) {
            number = group.Number() * (Second / 1000);
        } else {
            std::int64_t scale = Second;
            for (const char16_t c : group.Digits) {
                scale /= 10;
                number += (c - u'0') * scale;
            }
        }
        Time.Clock += number;
        ++At;
        return true;
    }

    // The clock, if anything is left of the text.
    bool ReadClock() {
        if (Left() == 0 || (Time.HasClock && !Time.IsSpan)) return true;
        if (Time.HasDate && !Next().Before.empty() && Next().Before != u"," &&
            Next().Before != Groups[1].Before && Next().Before != u"-" && Next().Before != u":")
            return false;
        if (ReadCompactClock()) return ReadFraction();
        const Group first = Next();
        if (Left() == 1 || Groups[At + 1].AfterBlank) return false;
        const std::u16string mark = Groups[At + 1].Before;
        const bool isColoned = mark == u":";
        if (!isColoned && !Time.HasDate) return false;
        if (mark != u":" && mark != u"." && mark != u"-" && mark != u"/") return false;
        const bool hasSeconds = Left() >= 3 && Groups[At + 2].Before == mark && !Groups[At + 2].AfterBlank;
        const std::int64_t second = Groups[At + 1].Number();
        if (Groups[At + 1].Length() > 2) return false;
        if (!hasSeconds) {
            At += 2;
            const bool isMinutes = Style.BeginsWithMinutes ||
                                   (Left() != 0 && Next().Before == u"." && !Next().AfterBlank && isColoned);
            if (!(isMinutes && !Time.HasDate)) return SetClock(first.Number(), second, 0) && ReadFraction();
            return SetMinutes(first.Number(), second) && ReadFraction();
        }
        const Group third = Groups[At + 2];
        if (Style.BeginsWithMinutes && !Time.HasDate) {
            At += 2;
            return SetMinutes(first.Number(), second) && ReadFraction();
        }
        At += 3;
        return third.Length() <= 2 && SetClock(first.Number(), second, third.Number()) && ReadFraction();
    }

    bool SetMinutes(std::int64_t minutes, std::int64_t seconds) {
        constexpr std::int64_t MostMinutes = std::int64_t{24} * 60 * 36'500;
        if (minutes > MostMinutes || seconds > 60) return false;
        Time.Clock += minutes * Minute + seconds * Second;
        Time.HasClock = true;
        return true;
    }

    // hhmm or hhmmss after a date, with or without a fraction.
    bool ReadCompactClock() {
        const bool isOne =
            Left() == 1 || (Left() == 2 && (Groups[At + 1].Before == u"." || Groups[At + 1].Before == u",") &&
                            !Groups[At + 1].AfterBlank);
        const std::size_t length = Next().Length();
        if (!isOne || !Time.HasDate || (length != 4 && length != 6 && length != 9)) return false;
        std::int64_t number = Next().Number();
        std::int64_t milliseconds = 0;
        if (length == 9) {
            milliseconds = number % 1000;
            number /= 1000;
        }
        if (length == 4) number *= 100;
        if (!SetClock(number / 10'000, number / 100 % 100, number % 100)) return false;
        Time.Clock += milliseconds * (Second / 1000);
        ++At;
        return true;
    }

    // Twelve hours and a half of the day.
    bool ApplyHalf() {
        if (Half == 0) return true;
        const std::int64_t hours = Time.Clock / Hour;
        // "13:05 PM" is what some loggers print.
        if (!Time.HasClock || hours > 23) return false;
        if (hours == 12 && Half == 1) Time.Clock -= 12 * Hour;
        if (hours < 12 && Half == 2) Time.Clock += 12 * Hour;
        return true;
    }

    const TimeStyle Style;
    std::vector<Group> Groups;
    std::size_t At = 0;
    ParsedTime Time;
    std::size_t MonthAt = 0;
    std::size_t ZoneEnd = 0;
    int Half = 0;  // of the day: 1 before noon, 2 after; 0 is not named
    bool HasT = false;
    bool HasZoneWord = false;
    bool IsHourMarked = false;  // the next group follows an h
};
}  // namespace

std::int64_t DaysSince1970(int year, int month, int day) {
    // Years from March on, so that the leap day is the last of its year; 400 years have 146,097 days.
    const int shifted = month > 2 ? year : year - 1;
    const int era = shifted / 400;
    const int ofEra = shifted - era * 400;
    const int ofYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return std::int64_t{era} * 146'097 + ofEra * 365 + ofEra / 4 - ofEra / 100 + ofYear - 719'468;
}

std::int64_t ParsedTime::Written() const {
    return (HasDate ? DaysSince1970(Year, Month, Day) * DayLength : 0) + Clock;
}

std::optional<ParsedTime> ParseTime(std::u16string_view text, const TimeStyle& style) {
    constexpr std::size_t Longest = 64;
    if (text.size() > Longest) return std::nullopt;
    if (std::optional<ParsedTime> time = TimeReader(style).Read(text)) return time;
    // Two times, from and to: the row belongs to the first.
    for (const std::u16string_view mark : {u" to ", u" - ", u"/", u" bis "}) {
        const std::size_t at = text.find(mark);
        constexpr std::size_t Shortest = 8;
        if (at == text.npos || at < Shortest || text.size() - at < Shortest) continue;
        std::optional<ParsedTime> from = TimeReader(style).Read(text.substr(0, at));
        if (from && TimeReader(style).Read(text.substr(at + mark.size()))) return from;
    }
    return std::nullopt;
}
}  // namespace kelvarin::plan
