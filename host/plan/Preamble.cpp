#include "host/plan/Preamble.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "host/plan/Durations.h"
#include "host/plan/ExactProduct.h"
#include "host/plan/TimeNames.h"
#include "host/plan/TimeWords.h"
#include "host/plan/Units.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
bool HasAny(std::u16string_view text, std::initializer_list<std::u16string_view> parts) {
    return std::any_of(parts.begin(), parts.end(), [&](auto part) { return text.find(part) != text.npos; });
}

// The longest part of a line, from a digit or a word on, that is a date; with a clock if it has one.
std::optional<ParsedTime> DateIn(std::u16string_view line) {
    std::optional<ParsedTime> best;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool begins = at == 0 || IsWhiteSpace(line[at - 1]) ||
                            std::u16string_view(u":;,=\t\"(").find(line[at - 1]) != std::u16string_view::npos;
        if (!begins || IsWhiteSpace(line[at])) continue;
        constexpr std::size_t Longest = 40;
        for (std::size_t end = std::min(line.size(), at + Longest); end > at + 5; --end) {
            if (end < line.size() && (IsDigit(line[end]) || !IsDigit(line[end - 1])) &&
                !IsWhiteSpace(line[end]) &&
                std::u16string_view(u",;\t\")").find(line[end]) == std::u16string_view::npos)
                continue;
            std::u16string text(line.substr(at, end - at));
            std::replace(text.begin(), text.end(), u';', u' ');
            std::replace(text.begin(), text.end(), u'\t', u' ');
            const std::optional<ParsedTime> time = ParseTime(text, {DateOrder::DayFirst, false, false});
            if (!time || !time->HasDate) continue;
            if (!best || (time->HasClock && !best->HasClock)) best = time;
            break;
        }
        if (best && best->HasClock) return best;
    }
    return best;
}

// A number followed by a unit of time, or by Hz.
std::optional<std::int64_t> IntervalIn(std::u16string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (!IsDigit(line[at]) || (at > 0 && (IsDigit(line[at - 1]) || line[at - 1] == u'.' ||
                                              line[at - 1] == u':' || line[at - 1] == u'-')))
            continue;
        std::size_t end = at;
        while (end < line.size() && (IsDigit(line[end]) || line[end] == u'.' || line[end] == u',')) ++end;
        std::u16string_view number = line.substr(at, end - at);
        while (!number.empty() && !IsDigit(number.back())) number.remove_suffix(1);
        std::size_t word = end;
        while (word < line.size() &&
               (IsWhiteSpace(line[word]) || line[word] == u'[' || line[word] == u';' || line[word] == u'('))
            ++word;
        std::size_t last = word;
        while (last < line.size() && ((line[last] | 32) >= u'a' && (line[last] | 32) <= u'z'
                                          ? true
                                          : line[last] == u'µ' || line[last] == u'μ'))
            ++last;
        const std::u16string_view unit = line.substr(word, last - word);
        const char16_t mark = number.find(u',') != number.npos ? u',' : u'.';
        if (const std::int64_t size = UnitOfTime(unit); size != 0) {
            const std::optional<std::int64_t> interval = ExactProduct(number, size, mark);
            if (interval && *interval > 0) return interval;
        }
        const std::int64_t factor = EqualsIgnoreCase(unit, u"Hz")    ? 1
                                    : EqualsIgnoreCase(unit, u"kHz") ? 1000
                                    : EqualsIgnoreCase(unit, u"MHz") ? 1'000'000
                                                                     : 0;
        if (factor == 0) continue;
        const std::optional<std::int64_t> rate =
            ExactProduct(number, 1'000'000 * factor, mark);  // in millionths
        if (rate && *rate > 0)
            return static_cast<std::int64_t>(1e6 * static_cast<double>(Second) / static_cast<double>(*rate) +
                                             0.5);
    }
    return std::nullopt;
}
// "Interval [ms];250": the unit is in brackets before the number.
std::optional<std::int64_t> IntervalAfterUnit(std::u16string_view line) {
    const std::size_t end = line.find_first_of(u"])");
    if (end == line.npos) return std::nullopt;
    const std::int64_t unit = UnitOfTime(UnitInName(line.substr(0, end + 1)));
    const std::size_t begin = line.find_first_of(u"0123456789", end);
    if (unit == 0 || begin == line.npos) return std::nullopt;
    std::u16string_view number = line.substr(begin);
    number = number.substr(0, number.find_first_not_of(u"0123456789."));
    const std::optional<std::int64_t> interval = ExactProduct(number, unit, u'.');
    return interval && *interval > 0 ? interval : std::nullopt;
}

// The first number of a line after `at`, also with an exponent; 0 for none.
double NumberAfter(std::u16string_view line, std::size_t at) {
    const std::size_t begin = line.find_first_of(u"0123456789", at);
    if (begin == line.npos) return 0;
    std::u16string_view number = line.substr(begin);
    number = number.substr(0, number.find_first_not_of(u"0123456789.eE+-"));
    const std::optional<NumberLook> look = LookAtNumber(number);
    return look ? ValueOf(number, *look) : 0;
}

// Whole nanoseconds; nothing for what is none, or longer than a year.
std::optional<std::int64_t> IntervalOfSeconds(double seconds) {
    constexpr double Longest = 366 * 86'400.0;
    const double nanoseconds = seconds * static_cast<double>(Second);
    if (!(nanoseconds >= 1 && seconds <= Longest)) return std::nullopt;
    return static_cast<std::int64_t>(nanoseconds + 0.5);
}

// "SampleRate,1.25E+06", "fs=2000", "dt = 0.004", "XIncrement,2.0E-06": a rate in Hz or a step in seconds.
// Without a unit, a small rate may count anything.
std::optional<std::int64_t> IntervalWithoutUnit(std::u16string_view line, std::u16string_view low) {
    const auto endOf = [low](std::initializer_list<std::u16string_view> words) {
        for (const std::u16string_view word : words) {
            const std::size_t at = low.find(word);
            if (at != low.npos) return at + word.size();
        }
        return low.npos;
    };
    constexpr double LargeRate = 100;
    if (const std::size_t end = endOf({u"frequency", u"fs=", u"fs =", u"fs:", u"rate"}); end != low.npos) {
        const double rate = NumberAfter(line, end);
        const bool isRate = rate >= LargeRate || low.find(u"hz") != low.npos;
        return isRate && rate > 0 ? IntervalOfSeconds(1 / rate) : std::nullopt;
    }
    const std::size_t end = endOf({u"increment", u"hresolution", u"delta_x", u"delta x", u"deltax",
                                   u"delta t", u"dt=", u"dt =", u"dt:"});
    return end == low.npos ? std::nullopt : IntervalOfSeconds(NumberAfter(line, end));
}

// "Sample interval: 00:15:00".
std::optional<std::int64_t> IntervalOfClock(std::u16string_view line) {
    const std::size_t begin = line.find_first_of(u"0123456789");
    if (begin == line.npos) return std::nullopt;
    std::u16string_view text = TrimWhiteSpace(line.substr(begin));
    while (!text.empty() && !IsDigit(text.back())) text.remove_suffix(1);
    const std::optional<ParsedTime> time = ParseTime(text, {});
    const bool hasSeconds = std::count(text.begin(), text.end(), u':') == 2;
    const bool isInterval = time && !time->HasDate && hasSeconds && time->Clock > 0;
    return isInterval ? std::optional(time->Clock) : std::nullopt;
}

// "Days: 0 Hours: 00 Mins: 15 Secs: 00": units before their numbers.
std::optional<std::int64_t> IntervalOfUnits(std::u16string_view line) {
    std::int64_t sum = 0;
    for (std::size_t at = 0; at < line.size();) {
        std::size_t end = at;
        while (end < line.size() && IsLetter(line[end])) ++end;
        const std::int64_t unit = end == at ? 0 : UnitOfTime(line.substr(at, end - at));
        at = end == at ? at + 1 : end;
        if (unit == 0 || at >= line.size() || line[at] != u':') continue;
        sum += static_cast<std::int64_t>(NumberAfter(line, at) * static_cast<double>(unit));
    }
    return sum > 0 ? std::optional(sum) : std::nullopt;
}

// "X,CH1,Start,Increment" above "s,V,-6e-4,1e-6": the value is in the line below.
std::optional<std::int64_t> IntervalBelow(std::u16string_view low, std::u16string_view below) {
    const std::size_t at = low.find(u"increment");
    if (at == low.npos) return std::nullopt;
    const auto commas = std::count(low.begin(), low.begin() + static_cast<std::ptrdiff_t>(at), u',');
    std::size_t begin = 0;
    for (std::ptrdiff_t i = 0; i < commas && begin != below.npos; ++i) {
        begin = below.find(u',', begin);
        if (begin != below.npos) ++begin;
    }
    if (commas == 0 || begin == below.npos || begin >= below.size()) return std::nullopt;
    const std::u16string_view cell = below.substr(begin, below.find(u',', begin) - begin);
    const std::optional<NumberLook> look = LookAtNumber(cell);
    return look ? IntervalOfSeconds(ValueOf(cell, *look)) : std::nullopt;
}

std::optional<std::int64_t> IntervalOf(std::u16string_view line, std::u16string_view low) {
    if (const auto interval = IntervalOfClock(line)) return interval;
    if (const auto interval = IntervalOfUnits(line)) return interval;
    if (const auto interval = IntervalIn(line)) return interval;
    if (const auto interval = IntervalAfterUnit(line)) return interval;
    return IntervalWithoutUnit(line, low);
}

// Four digits on their own.
std::optional<int> YearIn(std::u16string_view line) {
    for (std::size_t at = 0; at + 4 <= line.size(); ++at) {
        const std::u16string_view digits = line.substr(at, 4);
        const bool isAlone =
            (at == 0 || !IsDigit(line[at - 1])) && (at + 4 == line.size() || !IsDigit(line[at + 4]));
        if (!isAlone || !std::all_of(digits.begin(), digits.end(), IsDigit)) continue;
        int year = 0;
        for (const char16_t c : digits) year = 10 * year + (c - u'0');
        if (year >= 1980 && year <= 2100) return year;
    }
    return std::nullopt;
}

// "Time Offset (ms)": a word for time and a unit at the end, without a value.
std::optional<std::int64_t> TimeUnitIn(std::u16string_view line) {
    const std::u16string text(TrimWhiteSpace(line));
    const bool endsInBrackets = text.ends_with(u')') || text.ends_with(u']');
    if (!endsInBrackets || std::any_of(text.begin(), text.end(), IsDigit)) return std::nullopt;
    const std::int64_t unit = UnitOfTime(UnitInName(text));
    if (unit == 0 || !IsNamedTime({text, {}, {text}})) return std::nullopt;
    return unit;
}

// "Missing value: -9999": a number of nines after the word.
std::u16string MissingIn(std::u16string_view line, std::u16string_view low) {
    std::size_t at = low.npos;
    for (const std::u16string_view word : {u"missing", u"no data", u"nodata", u"fehlwert", u"fill value"})
        at = std::min(at, low.find(word));
    if (at == low.npos) return {};
    for (std::size_t end = line.size(); end > at; --end) {
        if (!IsDigit(line[end - 1])) continue;
        std::size_t begin = end;
        while (begin > at && std::u16string_view(u"0123456789.,-").find(line[begin - 1]) != line.npos)
            --begin;
        const std::u16string_view number = line.substr(begin, end - begin);
        const auto nines = std::count(number.begin(), number.end(), u'9');
        const bool areNines = nines >= 2 && std::none_of(number.begin(), number.end(),
                                                         [](char16_t c) { return c > u'0' && c < u'9'; });
        return areNines && LookAtNumber(number) ? std::u16string(number) : std::u16string();
    }
    return {};
}

// "3/7/2024 10:20:33 AM".
bool HasTwelveHours(std::u16string_view line) {
    for (const std::u16string_view half : {u" AM", u" PM"}) {
        const std::size_t at = line.find(half);
        if (at == line.npos || at == 0 || !IsDigit(line[at - 1])) continue;
        const std::u16string_view before = line.substr(0, at);
        if (std::count(before.begin(), before.end(), u'/') >= 2 && before.find(u':') != before.npos)
            return true;
    }
    return false;
}

// How much a line with a date says that the measurement began then; 0 for one that says that it ended.
int StartRank(std::u16string_view low) {
    if (HasAny(low, {u"start", u"begin", u"first", u"trigger"})) return 3;
    if (HasAny(low, {u"end", u"stop", u"last", u"export", u"print", u"calib"})) return 0;
    return HasAny(low, {u"date", u"datum", u"time", u"zeit", u"fecha"}) ? 2 : 1;
}

bool IsOfInterval(std::u16string_view low) {
    return HasAny(low, {u"interval", u"sampl", u"abtast", u"takt", u"rate", u"period", u"step", u"delta",
                        u"increment", u"dt=", u"dt =", u"dt:", u"fs=", u"fs =", u"fs:", u"frequency",
                        u"hresolution"}) &&
           !HasAny(low, {u"baud", u"points"});
}
}  // namespace

PreambleClues ReadPreamble(const FileSample& sample, const FoundTable& table) {
    PreambleClues clues;
    int bestRank = 0;
    for (std::size_t i = 0; i < table.First && i < sample.Lines.size(); ++i) {
        constexpr std::size_t Longest = 300;
        const std::u16string_view line = std::u16string_view(sample.Lines[i].Text).substr(0, Longest);
        const std::u16string low = Lowered(line);
        if (const int rank = StartRank(low); rank > bestRank) {
            if (const std::optional<ParsedTime> date = DateIn(line)) {
                clues.Start = date->Written();
                bestRank = rank;
            }
        }
        if (!clues.Interval && IsOfInterval(low)) {
            clues.Interval = IntervalOf(line, low);
            if (!clues.Interval && i + 1 < table.First)
                clues.Interval = IntervalBelow(low, sample.Lines[i + 1].Text);
        }
        clues.HasTwelveHours |= HasTwelveHours(line);
        if (!clues.Year) clues.Year = YearIn(line);
        if (!clues.TimeUnit) clues.TimeUnit = TimeUnitIn(line);
        if (clues.Missing.empty()) clues.Missing = MissingIn(line, low);
    }
    return clues;
}
}  // namespace kelvarin::plan
