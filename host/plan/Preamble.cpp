#include "host/plan/Preamble.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "host/plan/Durations.h"
#include "host/plan/TimeRecipe.h"
#include "host/plan/TimeWords.h"
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
}  // namespace

PreambleClues ReadPreamble(const FileSample& sample, const FoundTable& table) {
    PreambleClues clues;
    int bestKey = 0;
    for (std::size_t i = 0; i < table.First && i < sample.Lines.size(); ++i) {
        constexpr std::size_t Longest = 300;
        const std::u16string_view line = std::u16string_view(sample.Lines[i].Text).substr(0, Longest);
        const std::u16string low = Lowered(line);
        if (const std::optional<ParsedTime> date = DateIn(line)) {
            const int key = HasAny(low, {u"start", u"begin", u"first", u"trigger"})        ? 3
                            : HasAny(low, {u"date", u"datum", u"time", u"zeit", u"fecha"}) ? 2
                                                                                           : 1;
            const bool isEnd =
                HasAny(low, {u"end", u"stop", u"last", u"export", u"print", u"calib"}) && key < 3;
            if (!isEnd && key > bestKey) {
                clues.Start = date->Written();
                bestKey = key;
            }
        }
        const bool isRate = HasAny(low, {u"interval", u"sampl", u"abtast", u"takt", u"rate", u"period",
                                         u"step", u"delta", u"increment", u"dt="});
        if (isRate && !clues.Interval && !HasAny(low, {u"baud", u"points"}))
            clues.Interval = IntervalIn(line);
        for (std::size_t at = 0; at + 4 <= line.size(); ++at) {
            const bool isAlone =
                (at == 0 || !IsDigit(line[at - 1])) && (at + 4 == line.size() || !IsDigit(line[at + 4]));
            if (!isAlone || !std::all_of(line.begin() + static_cast<std::ptrdiff_t>(at),
                                         line.begin() + static_cast<std::ptrdiff_t>(at) + 4, IsDigit))
                continue;
            const int year = (line[at] - u'0') * 1000 + (line[at + 1] - u'0') * 100 +
                             (line[at + 2] - u'0') * 10 + (line[at + 3] - u'0');
            if (year >= 1980 && year <= 2100 && !clues.Year) clues.Year = year;
        }
    }
    return clues;
}
}  // namespace kelvarin::plan
