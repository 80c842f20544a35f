// What the texts above a column say about times in it.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/guess/TimeCandidate.h"

namespace kelvarin::guess {

namespace {

// Parts of words and whole words for time, as the columns of loggers are called in the languages of Western
// Europe. Short ones count as whole words only: "day" is in "Monday", "ts" in "volts".
constexpr std::u16string_view WordParts[] = {u"time", u"zeit",  u"stamp", u"date",    u"datum", u"uhr",
                                             u"tijd", u"temps", u"epoch", u"elapsed", u"dauer", u"duration"};
constexpr std::u16string_view Words[] = {u"t",   u"ts",  u"utc",  u"gmt",  u"day",
                                         u"tag", u"ora", u"hora", u"heure"};

// The words for each unit, a blank around each.
struct UnitWords {
    std::u16string_view Unit;
    std::u16string_view Words;
};
constexpr UnitWords UnitsNamed[] = {
    {u"h", u" h hours std stunden "},
    {u"min", u" min minutes "},
    {u"s", u" s sec secs second seconds sek sekunden "},
    {u"ms", u" ms msec millis milliseconds millisekunden "},
    {u"µs", u" µs μs us usec micros microseconds "},
    {u"ns", u" ns nsec nanoseconds "},
};

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c > 0x7F;
}

std::u16string Lowered(std::u16string_view word) {
    std::u16string lowered(word);
    for (char16_t& c : lowered) {
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + (u'a' - u'A'));
    }
    return lowered;
}

// A lone capital is a quantity, as T a temperature.
bool IsTimeWord(std::u16string_view word) {
    const std::u16string lowered = Lowered(word);
    if (word.size() == 1) return word == u"t";
    if (std::find(std::begin(Words), std::end(Words), lowered) != std::end(Words)) return true;
    return std::any_of(std::begin(WordParts), std::end(WordParts),
                       [&](std::u16string_view part) { return lowered.find(part) != std::u16string::npos; });
}

// What a text such as "MM/DD/YYYY" says about the order.
DateOrder OrderIn(std::u16string_view label) {
    for (std::size_t i = 0; i + 5 <= label.size(); ++i) {
        const std::u16string_view first = label.substr(i, 2);
        const std::u16string_view second = label.substr(i + 3, 2);
        const bool marked = std::u16string_view(u"./-").find(label[i + 2]) != std::u16string_view::npos;
        const auto isDay = [](std::u16string_view text) { return text == u"DD" || text == u"TT"; };
        if (marked && isDay(first) && second == u"MM") return DateOrder::DayFirst;
        if (marked && first == u"MM" && isDay(second)) return DateOrder::MonthFirst;
    }
    return DateOrder::NoDate;
}

void ReadLabel(std::u16string_view label, ColumnHint& hint) {
    for (std::size_t begin = 0; begin < label.size(); ++begin) {
        if (!IsLetter(label[begin])) continue;
        std::size_t end = begin;
        while (end < label.size() && IsLetter(label[end])) ++end;
        const std::u16string_view word = label.substr(begin, end - begin);
        hint.IsTime |= IsTimeWord(word);
        // The s of m/s and the h of km/h are no times, nor is a lone capital.
        const bool isDenominator = begin != 0 && label[begin - 1] == u'/';
        const bool isNumerator = end < label.size() && label[end] == u'/';
        const bool isCapital = word.size() == 1 && word[0] < u'a';
        for (const UnitWords& named : UnitsNamed) {
            const bool isNamed = named.Words.find(u" " + Lowered(word) + u" ") != named.Words.npos;
            if (isNamed && !isDenominator && !isNumerator && !isCapital) hint.Unit = named.Unit;
        }
        begin = end;
    }
}

}  // namespace

ColumnHint HintOf(const TableSample& table, std::size_t column) {
    ColumnHint hint;
    for (const SampledRow& row : table.Above) {
        const bool isProse = row.Cells.size() < 2 && table.Names.size() > 1;
        if (row.Cells.size() <= column || isProse) continue;
        const std::u16string& label = row.Cells[column];
        hint.IsNamed |= !label.empty();
        ReadLabel(label, hint);
        if (hint.Order == DateOrder::NoDate) hint.Order = OrderIn(label);
    }
    return hint;
}

}  // namespace kelvarin::guess
