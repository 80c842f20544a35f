// Columns of numbers that count time. The unit comes from the texts above the column, or else from the size
// of the numbers: those that lie between the years 2000 and 2040 count from 1970, others are taken for what
// makes the usual steps of a logger.
#include <algorithm>
#include <iterator>

#include "host/guess/GuessParts.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

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

// How the numbers of a column are written.
struct NumberForm {
    bool HasPlus = false;  // a sign before positive ones
    char16_t Mark = u'\0';
    double First = 0;
};

// Reads "[+-]digits[mark digits][e[sign]digits]".
bool ReadForm(const std::u16string& text, NumberForm& form) {
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t begin = at;
        while (at < text.size() && IsDigit(text[at])) ++at;
        return at != begin;
    };
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) form.HasPlus |= text[at++] == u'+';
    if (!digits()) return false;
    if (at < text.size() && (text[at] == u'.' || text[at] == u',')) {
        form.Mark = text[at++];
        if (!digits()) return false;
    }
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        ++at;
        if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) ++at;
        if (!digits()) return false;
    }
    return at == text.size();
}

std::optional<NumberForm> FormOf(const TableTrial& trial, const TextList& texts) {
    NumberForm form;
    const TextList examples = trial.Examples(texts);
    for (const std::u16string& example : examples) {
        if (!ReadForm(example, form)) return std::nullopt;
    }
    if (examples.empty()) return std::nullopt;
    const std::u16string first = ReplaceAll(examples.front(), u",", u".");
    const char16_t* end = nullptr;
    form.First = ParseDouble(first.c_str(), u'.', &end);
    // The first number with a fraction may be anywhere.
    for (std::size_t i = 0; i < texts.size() && form.Mark == u'\0'; ++i) {
        const std::size_t mark = texts[i].find_first_of(u".,");
        if (mark != std::u16string::npos) form.Mark = texts[i][mark];
    }
    return form;
}

// The unit in which a number since 1970 lies in our time; nothing for none. No reading of a sensor is as
// large and as close to the clock, while loggers before 2000 wrote no such numbers.
std::optional<std::u16string> EpochUnit(double number) {
    constexpr double From = 946'684'800;  // 2000 and 2040
    constexpr double To = 2'208'988'800;
    for (const IntervalUnit& unit : IntervalUnits) {
        const double seconds = number * static_cast<double>(unit.Nanoseconds) / static_cast<double>(Second);
        if (unit.Nanoseconds <= Second && seconds >= From && seconds <= To) return unit.Name;
    }
    return std::nullopt;
}

// The unit that makes a usual step of numbers without one, by their median step in nanoseconds as if they
// counted seconds. Rows further apart than one in numbers are rather milliseconds, since a logger that is
// read every few seconds writes the time of day. Numbers in the tens of millions that rise by thousands are
// the microseconds of a bus trace: as milliseconds they would be hours after its start, with seconds between
// rows.
std::u16string UsualUnit(std::int64_t step, double first) {
    if (step >= 1000 * Second && first >= 1e7) return u"µs";
    return step > Second ? u"ms" : u"s";
}

std::u16string FormatOf(const NumberForm& form, const std::u16string& unit, const std::u16string& letters) {
    std::u16string format = form.HasPlus ? u"+" : u"";
    format += unit == u"min" ? std::u16string(2, letters[4]) : u"[" + unit + u"]";
    if (form.Mark != u'\0') format += std::u16string(1, form.Mark) + u"000";
    return format;
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

std::vector<TimeCandidate> FindNumberCandidates(const TableTrial& trial) {
    std::vector<TimeCandidate> found;
    for (std::size_t column = 0; column < trial.Columns(); ++column) {
        TimeCandidate candidate;
        candidate.Hint = HintOf(trial.Sample(), column);
        const bool isPlace = !candidate.Hint.IsNamed && column == 0;
        if (!candidate.Hint.IsTime && candidate.Hint.Unit.empty() && !isPlace) continue;
        const TextList texts = trial.Texts(column);
        const std::optional<NumberForm> form = FormOf(trial, texts);
        if (!form) continue;
        candidate.TimeColumn = static_cast<int>(column) + 1;
        const std::optional<std::u16string> epoch = EpochUnit(form->First);
        candidate.Kind = epoch && candidate.Hint.Unit.empty() ? TimeKind::Epoch : TimeKind::Elapsed;
        candidate.Unit = candidate.Kind == TimeKind::Epoch ? *epoch : candidate.Hint.Unit;
        if (candidate.Unit.empty()) {
            const std::u16string seconds = FormatOf(*form, u"s", trial.Letters());
            if (!trial.FitsFirstRows(seconds, texts, false)) continue;
            candidate.Unit = UsualUnit(trial.Read(seconds, texts, false).MedianStep, form->First);
        }
        candidate.Shape.Format = FormatOf(*form, candidate.Unit, trial.Letters());
        if (!trial.FitsFirstRows(candidate.Shape.Format, texts, false)) continue;
        candidate.Reading = trial.Read(candidate.Shape.Format, texts, false);
        found.push_back(std::move(candidate));
    }
    return found;
}
}  // namespace kelvarin::guess
