#include "host/plan/TimeNames.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/plan/TimeWords.h"
#include "host/plan/Units.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
struct Word {
    std::u16string_view Text;
    bool IsInQuotient = false;  // a stroke is directly before or after it
};

std::vector<Word> WordsOf(std::u16string_view label) {
    std::vector<Word> words;
    for (std::size_t begin = 0; begin < label.size(); ++begin) {
        if (!IsLetter(label[begin])) continue;
        std::size_t end = begin;
        while (end < label.size() && IsLetter(label[end])) {
            // "TestTime" is two words, "DATE" is one.
            const bool isHump = end > begin && label[end] >= u'A' && label[end] <= u'Z' &&
                                label[end - 1] >= u'a' && label[end - 1] <= u'z';
            if (isHump) break;
            ++end;
        }
        const bool isQuotient =
            (begin != 0 && label[begin - 1] == u'/') || (end < label.size() && label[end] == u'/');
        words.push_back({label.substr(begin, end - begin), isQuotient});
        begin = end - 1;
    }
    return words;
}

bool HasPart(std::u16string_view word, const std::u16string_view* begin, const std::u16string_view* end) {
    const std::u16string lowered = Lowered(word);
    return std::any_of(begin, end,
                       [&](std::u16string_view part) { return lowered.find(part) != lowered.npos; });
}

constexpr std::u16string_view NamePartsOfTime[] = {u"time",  u"zeit",     u"stamp", u"uhr",   u"tijd",
                                                   u"temps", u"tiempo",   u"tempo", u"epoch", u"elapsed",
                                                   u"dauer", u"duration", u"czas",  u"aika"};
constexpr std::u16string_view WordsOfTime = u" t ts utc gmt ora hora heure hour hours zeit ";
constexpr std::u16string_view NamePartsOfDate[] = {u"date", u"datum", u"fecha", u"giorno"};
constexpr std::u16string_view WordsOfDate = u" day tag jour data dia dato ";
constexpr std::u16string_view WordsOfClock =
    u" time zeit uhrzeit hour hours hh hhmm hhmmss hr uur stunde heure ora hora tijdstip tijd clock ";

bool IsWordOfTime(std::u16string_view word) {
    // A lone capital is a quantity, as T a temperature.
    if (word.size() == 1) return word == u"t";
    return HasPart(word, std::begin(NamePartsOfTime), std::end(NamePartsOfTime)) ||
           IsListed(WordsOfTime, Lowered(word));
}

template <class Test>
bool AnyWord(const Label& label, Test test) {
    for (const std::u16string& text : label.All) {
        for (const Word& word : WordsOf(text)) {
            if (test(word)) return true;
        }
    }
    return false;
}
}  // namespace

bool IsNamedDate(const Label& label) {
    return AnyWord(label, [](const Word& word) {
        return HasPart(word.Text, std::begin(NamePartsOfDate), std::end(NamePartsOfDate)) ||
               IsListed(WordsOfDate, Lowered(word.Text));
    });
}

bool IsNamedTime(const Label& label) {
    return IsNamedDate(label) || AnyWord(label, [](const Word& word) { return IsWordOfTime(word.Text); });
}

bool IsNamedClock(const Label& label) {
    return AnyWord(label, [](const Word& word) { return IsListed(WordsOfClock, Lowered(word.Text)); });
}

bool IsDayOfYear(const Label& label) {
    constexpr std::u16string_view Parts[] = {u"doy", u"jday", u"yday", u"dayofyear"};
    return AnyWord(label,
                   [&](const Word& word) { return HasPart(word.Text, std::begin(Parts), std::end(Parts)); });
}

bool SpellsMinutesFirst(const Label& label) {
    return std::any_of(label.All.begin(), label.All.end(), [](const std::u16string& text) {
        const std::u16string low = Lowered(text);
        return low.find(u"mm:ss") != low.npos && low.find(u"h:mm:ss") == low.npos;
    });
}

bool IsModifiedJulian(const Label& label) {
    return AnyWord(label, [](const Word& word) { return EqualsIgnoreCase(word.Text, u"mjd"); });
}

std::optional<TimePart> PartOfName(const Label& label) {
    struct Named {
        std::u16string_view Words;
        TimePart Part;
    };
    constexpr Named Names[] = {
        {u" year years yr jahr yyyy yy jjjj année año anno jaar rok ", TimePart::Year},
        {u" month months monat mois mes mese maand mon mo miesiąc ", TimePart::Month},
        {u" day tag jour día dia giorno dag dd dy mday dzień ", TimePart::Day},
        {u" doy jday yday ", TimePart::DayOfYear},
        {u" hour hours hr stunde std heure hora ora uur hh h godzina ", TimePart::Hours},
        {u" minute minutes minuten min mins mn minuut minuto ", TimePart::Minutes},
        {u" millisecond milliseconds ms msec millisekunde ", TimePart::Milliseconds},
        {u" week wk gpsweek ", TimePart::Week},
        {u" second seconds sec sekunde sekunden seconde secondo ss s ", TimePart::Seconds},
    };
    const std::vector<Word> words = WordsOf(label.Name);
    if (words.empty() || words.size() > 3) return std::nullopt;
    if (words.size() == 3 && Lowered(words[0].Text) == u"day" && Lowered(words[2].Text) == u"year")
        return TimePart::DayOfYear;
    // "MM" is a month, "mm" are minutes; "tow" are the seconds of a week.
    const bool isHourAndMinute = words.size() == 2 &&
                                 IsListed(u"hour hr hh stunde", Lowered(words[0].Text)) &&
                                 IsListed(u"minute min mm", Lowered(words[1].Text));
    if (isHourAndMinute || (words.size() == 1 && EqualsIgnoreCase(words[0].Text, u"hhmm")))
        return TimePart::HoursMinutes;
    if (words[0].Text == u"MM") return TimePart::Month;
    if (words[0].Text == u"mm") return TimePart::Minutes;
    if (Lowered(words[0].Text) == u"tow") return TimePart::Seconds;
    for (const Named& named : Names) {
        if (words.size() <= 2 && IsListed(named.Words, Lowered(words[0].Text))) return named.Part;
    }
    return std::nullopt;
}

std::int64_t UnitNamed(const Label& label) {
    const bool isTime = IsNamedTime(label);
    const auto unitOf = [isTime](std::u16string_view text) -> std::int64_t {
        const std::vector<Word> words = WordsOf(text);
        for (auto word = words.rbegin(); word != words.rend(); ++word) {
            const bool isCapital = word->Text.size() == 1 && word->Text[0] < u'a';
            const std::int64_t unit = UnitOfTime(word->Text);
            // "time/s" is a time in seconds, "v/s" none.
            const bool isOfTime =
                word == words.rbegin() && words.size() > 1 && IsWordOfTime((word + 1)->Text);
            // "day" alone is more often a date than an amount, "m" more often metres than minutes.
            const bool isOther =
                isCapital || Lowered(word->Text) == u"day" || (!isTime && word->Text == u"m");
            if (unit != 0 && (!word->IsInQuotient || isOfTime) && !isOther) return unit;
        }
        return 0;
    };
    const auto isOfQuotient = [isTime](std::u16string_view name, std::u16string_view unit) {
        return !isTime && name.ends_with(unit) && name.substr(0, name.size() - unit.size()).ends_with(u'/');
    };
    if (const std::int64_t unit = unitOf(label.Unit); unit != 0 && !isOfQuotient(label.Name, label.Unit))
        return unit;
    if (const std::int64_t unit = unitOf(label.Name); unit != 0) return unit;
    for (const std::u16string& text : label.All) {
        // "SampleTime[ms]"
        const std::u16string found = UnitInName(text);
        if (const std::int64_t unit = unitOf(found); unit != 0 && !isOfQuotient(text, found)) return unit;
    }
    return 0;
}

std::optional<DateOrder> OrderIn(const std::vector<std::u16string>& labels) {
    for (const std::u16string& label : labels) {
        const std::u16string low = Lowered(label);
        const std::size_t year = low.find(u"yy") != low.npos ? low.find(u"yy") : low.find(u"jj");
        const std::size_t month = label.find(u"MM") != label.npos ? label.find(u"MM") : low.find(u"mm");
        const std::size_t day = low.find(u"dd") != low.npos ? low.find(u"dd") : label.find(u"TT");
        if (year == low.npos || month == low.npos || day == low.npos) continue;
        if (year < month) return DateOrder::YearFirst;
        return day < month ? DateOrder::DayFirst : DateOrder::MonthFirst;
    }
    return std::nullopt;
}
}  // namespace kelvarin::plan
