#include "host/plan/TimeReader.h"

#include <algorithm>
#include <span>
#include <vector>

#include "host/plan/Calendar.h"
#include "host/plan/Durations.h"

namespace kelvarin::plan {
namespace {
using namespace std::string_view_literals;

// Reads one text; an object a text.
class TimeReader {
  public:
    explicit TimeReader(const TimeStyle& style) : Style(style) {}

    std::optional<ParsedTime> Read(const TimeGroups& cut) {
        Groups = cut.Groups;
        Half = cut.Half;
        Time.Month = cut.Month;
        Time.ZoneMinutes = cut.ZoneMinutes;
        Time.IsSpan = cut.IsSpan;
        Time.HasClock = cut.IsSpan;
        Time.Clock = cut.Span;
        if (Time.IsSpan && Groups.empty()) return Time;
        Period = cut.Period;
        if (Groups.empty() || !ReadDate() || !ReadClock() || At != Groups.size()) return std::nullopt;
        if (!Time.HasDate && !Time.HasClock) return std::nullopt;
        return ApplyHalf() ? std::optional(Time) : std::nullopt;
    }

  private:
    const DigitGroup& Next() const { return Groups[At]; }
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

    bool SetDate(const DigitGroup& year, std::int64_t month, const DigitGroup& day) {
        return day.Length() <= 2 && SetDate(year.Number(), year.Length(), month, day.Number());
    }

    // The date, if the text begins with one or names a month; false for an impossible one.
    bool ReadDate() {
        if (Time.IsSpan) return true;
        if (Time.Month != 0) return ReadNamedMonth();
        if (Period != u'\0') return ReadPeriod();
        const DigitGroup& first = Next();
        if (first.Length() >= 6) return ReadCompact(first);
        if (Left() == 2) return ReadYearAndMonth();
        if (Left() < 3) return true;
        if (IsDateOfTwo()) return ReadDateOfTwo();
        const DigitGroup& second = Groups[At + 1];
        const DigitGroup& third = Groups[At + 2];
        const bool isColoned = second.Before == u":"sv;
        if (isColoned && first.Length() != 4 && third.Length() != 4) return true;
        if (second.AfterBlank != third.AfterBlank || (!isColoned && second.Before == u":"sv)) return true;
        if (second.Before != third.Before) return IsClockOfMarks() || second.Before == u":"sv;
        if (second.Before == u"."sv && !Style.BeginsWithMinutes && third.Length() == 3) return true;
        At += 3;
        if (first.Length() == 4 || first.Number() > 31) return SetDate(first, second.Number(), third);
        if (third.Length() != 4 && Style.Order == DateOrder::YearFirst)
            return SetDate(first, second.Number(), third);
        if (second.Length() > 2) return false;
        return Style.Order == DateOrder::MonthFirst ? SetDate(third, first.Number(), second)
                                                    : SetDate(third, second.Number(), first);
    }

    // "2024-W10", "2024-W10-4", "1992M01", "2024-Q1": the first day of the week, the month or the quarter.
    bool ReadPeriod() {
        const DigitGroup year = Groups[0];
        if (Groups.size() < 2 || Groups[1].Length() > 2) return false;
        const std::int64_t number = Groups[1].Number();
        At = 2;
        if (Period == u'M') return SetDate(year, number, {u"1", {}, false});
        if (Period == u'Q') return number <= 4 && SetDate(year, 3 * number - 2, {u"1", {}, false});
        std::int64_t day = 1;
        if (Left() > 0 && Next().Before == u"-"sv && Next().Length() == 1) day = Groups[At++].Number();
        if (number < 1 || number > 53 || day < 1 || day > 7) return false;
        return SetDays(year, DaysOfWeekDate(static_cast<int>(year.Number()), static_cast<int>(number),
                                            static_cast<int>(day)));
    }

    // A date by its days since 1970, of which `year` is near.
    bool SetDays(const DigitGroup& year, std::int64_t days) {
        if (!SetDate(year, 1, {u"1", {}, false})) return false;
        const CalendarDay date = CalendarDayOf(days);
        Time.Year = date.Year;
        Time.Month = date.Month;
        Time.Day = date.Day;
        return true;
    }

    // "2024-03", "2024/03", "03/2024", and "2024-067", a day of the year; any other two groups are left.
    bool ReadYearAndMonth() {
        const DigitGroup& first = Groups[0];
        const DigitGroup& second = Groups[1];
        if (second.AfterBlank || (second.Before != u"-"sv && second.Before != u"/"sv)) return true;
        if (first.Length() == 4 && second.Length() == 3) return ReadDayOfYear();
        const bool isYearLast = second.Length() == 4;
        const DigitGroup& year = isYearLast ? second : first;
        const DigitGroup& month = isYearLast ? first : second;
        if (year.Length() != 4 || month.Length() != 2) return true;
        At += 2;
        return SetDate(year, month.Number(), {u"1", {}, false});
    }

    bool ReadDayOfYear() {
        const DigitGroup& year = Groups[At];
        const std::int64_t day = Groups[At + 1].Number();
        const int number = static_cast<int>(year.Number());
        const std::int64_t first = DaysSince1970(number, 1, 1);
        if (day < 1 || day > DaysSince1970(number + 1, 1, 1) - first) return false;
        At += 2;
        return SetDays(year, first + day - 1);
    }

    // Before a clock: "2024-067 10:20", "2024:067:10:20", or "03/07 22:20", whose year is the style's.
    bool IsDateOfTwo() const {
        const DigitGroup& second = Groups[At + 1];
        const DigitGroup& third = Groups[At + 2];
        if (second.AfterBlank) return false;
        if (Next().Length() == 4 && second.Length() == 3)
            return second.Before == u":"sv
                       ? third.Before == u":"sv
                       : third.AfterBlank && (second.Before == u"-"sv || second.Before == u"/"sv);
        const bool isMarked = second.Before == u"/"sv || second.Before == u"-"sv || second.Before == u"."sv;
        return Style.Year != 0 && isMarked && Next().Length() <= 2 && second.Length() <= 2 &&
               third.AfterBlank && (third.Before.empty() || third.Before == u"."sv) && Left() > 3;
    }

    bool ReadDateOfTwo() {
        if (Next().Length() == 4) return ReadDayOfYear();
        const DigitGroup& first = Groups[At];
        const DigitGroup& second = Groups[At + 1];
        At += 2;
        return Style.Order == DateOrder::DayFirst ? SetDate(Style.Year, 4, second.Number(), first.Number())
                                                  : SetDate(Style.Year, 4, first.Number(), second.Number());
    }

    // "12.30,5": not a date.
    bool IsClockOfMarks() const { return Left() >= 3 && Groups[At + 1].Before != Groups[At + 2].Before; }

    // A number of digits only: YYYYMMDD, YYYYMMDDhhmm(ss), or six digits by the order.
    bool ReadCompact(const DigitGroup& group) {
        const std::u16string_view digits = group.Digits;
        const auto part = [&](std::size_t from, std::size_t count) {
            return DigitGroup{digits.substr(from, count), {}, false};
        };
        const bool isAlone = Left() == 1;
        switch (digits.size()) {
            case 6:
                // A date where a clock follows; alone it is left to the numbers' own reading.
                if (isAlone && At == 0) return true;
                if (Left() >= 2 && (Groups[At + 1].Before == u"."sv || Groups[At + 1].Before == u","sv))
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
        // The clock's groups follow each other by colons, or by points after the date's two.
        std::vector<DigitGroup> dates;
        std::vector<DigitGroup> clock;
        const bool isDotted = Groups.size() > 3 && Groups[2].AfterBlank && Groups[3].Before == u"."sv &&
                              std::none_of(Groups.begin(), Groups.end(),
                                           [](const DigitGroup& group) { return group.Before == u":"sv; });
        for (std::size_t i = 0; i < Groups.size(); ++i) {
            const bool isClock = (isDotted && i > 1) || Groups[i].Before == u":"sv ||
                                 (i + 1 < Groups.size() && Groups[i + 1].Before == u":"sv) ||
                                 (!clock.empty() && i > 0 && !Groups[i].AfterBlank &&
                                  (Groups[i].Before == u"."sv || Groups[i].Before == u","sv) &&
                                  Groups[i - 1].Before == u":"sv);
            (isClock ? clock : dates).push_back(Groups[i]);
        }
        // "Jan-24", "January 2024"
        const bool isYear = dates.size() == 1 && clock.empty() && Style.Year == 0 &&
                            (dates[0].Length() == 4 || (dates[0].Length() == 2 && dates[0].Before == u"-"sv));
        if (isYear) {
            At = 1;
            return SetDate(dates[0], Time.Month, {u"1", {}, false});
        }
        if (dates.size() == 1 && Style.Year != 0 && dates[0].Length() <= 2) {
            if (!SetDate(Style.Year, 4, Time.Month, dates[0].Number())) return false;
            TakeGroups(std::move(clock));
            return true;
        }
        if (dates.size() != 2) return false;
        const bool yearFirst = dates[0].Length() == 4 || dates[0].Number() > 31;
        if (!SetDate(dates[yearFirst ? 0 : 1], Time.Month, dates[yearFirst ? 1 : 0])) return false;
        TakeGroups(std::move(clock));
        return true;
    }

    void TakeGroups(std::vector<DigitGroup> groups) {
        AfterDate = std::move(groups);
        Groups = AfterDate;
        At = 0;
    }

    bool SetClock(std::int64_t hours, std::int64_t minutes, std::int64_t seconds) {
        constexpr std::int64_t MostHours = 24 * 36'500;
        const bool isPartOfDay = Time.HasDate || Half != DayHalf::Unnamed;
        if (hours > (isPartOfDay ? 24 : MostHours) || minutes > 59 || seconds > 60) return false;
        if (isPartOfDay && hours == 24 && (minutes != 0 || seconds != 0)) return false;
        Time.Clock += hours * Hour + minutes * Minute + seconds * Second;
        Time.HasClock = true;
        return true;
    }

    // Digits after a point or a comma, or counted milliseconds.
    bool ReadFraction() {
        if (Left() == 0) return true;
        const DigitGroup& group = Next();
        const bool isMarked = group.Before == u"."sv || group.Before == u","sv || group.Before == u":"sv;
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

    // "1.15:45:00", "1 15:45:00": days before a clock of hours, minutes and seconds.
    void ReadDays() {
        if (Time.HasDate || Time.IsSpan || At != 0 || Left() < 4 || Left() > 5) return;
        const DigitGroup& hours = Groups[1];
        const bool isMarked = hours.AfterBlank ? hours.Before.empty() : hours.Before == u"."sv;
        const bool isClock = Groups[2].Before == u":"sv && Groups[3].Before == u":"sv;
        constexpr std::size_t MostDigits = 5;
        if (!isMarked || !isClock || hours.Length() > 2 || hours.Number() > 23 ||
            Next().Length() > MostDigits)
            return;
        Time.Clock = Next().Number() * DayLength;
        Time.IsSpan = true;
        ++At;
    }

    // The clock, if anything is left of the text.
    bool ReadClock() {
        ReadDays();
        if (Left() == 0 || (Time.HasClock && !Time.IsSpan)) return true;
        if (Time.HasDate && !Next().Before.empty() && Next().Before != u","sv &&
            Next().Before != Groups[1].Before && Next().Before != u"-"sv && Next().Before != u":"sv)
            return false;
        if (ReadCompactClock()) return ReadFraction();
        const DigitGroup first = Next();
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
            const bool isMinutes = Style.BeginsWithMinutes || (Left() != 0 && Next().Before == u"."sv &&
                                                               !Next().AfterBlank && isColoned);
            if (!(isMinutes && !Time.HasDate)) return SetClock(first.Number(), second, 0) && ReadFraction();
            return SetMinutes(first.Number(), second) && ReadFraction();
        }
        const DigitGroup third = Groups[At + 2];
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
            Left() == 1 ||
            (Left() == 2 && (Groups[At + 1].Before == u"."sv || Groups[At + 1].Before == u","sv) &&
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
        if (Half == DayHalf::Unnamed) return true;
        const std::int64_t hours = Time.Clock / Hour;
        // "13:05 PM" is what some loggers print.
        if (!Time.HasClock || hours > 23) return false;
        if (hours == 12 && Half == DayHalf::Morning) Time.Clock -= 12 * Hour;
        if (hours < 12 && Half == DayHalf::Afternoon) Time.Clock += 12 * Hour;
        return true;
    }

    const TimeStyle Style;
    std::span<const DigitGroup> Groups;
    std::vector<DigitGroup> AfterDate;  // Groups once the date with a named month is taken out
    std::size_t At = 0;
    ParsedTime Time;
    DayHalf Half = DayHalf::Unnamed;
    char16_t Period = u'\0';
};
}  // namespace

std::optional<ParsedTime> ReadTime(const std::optional<TimeGroups>& cut, const TimeStyle& style) {
    return cut ? TimeReader(style).Read(*cut) : std::nullopt;
}
}  // namespace kelvarin::plan
