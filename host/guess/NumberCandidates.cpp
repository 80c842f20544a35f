// Columns of numbers that count time. The unit comes from the name of the column, or else from the size of
// the numbers: those that lie between the years 2000 and 2040 count from 1970, others are taken for what
// makes the usual steps of a logger.
#include <optional>

#include "host/guess/TimeCandidate.h"

#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {

namespace {

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

constexpr std::int64_t Second = IntervalUnits[2].Nanoseconds;

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

std::optional<TimeCandidate> TryColumn(const TableTrial& trial, std::size_t column) {
    TimeCandidate candidate;
    candidate.Hint = HintOf(trial.Sample(), column);
    const bool isPlace = !candidate.Hint.IsNamed && column == 0;
    if (!candidate.Hint.IsTime && candidate.Hint.Unit.empty() && !isPlace) return std::nullopt;
    const TextList texts = trial.Texts(column);
    const std::optional<NumberForm> form = FormOf(trial, texts);
    if (!form) return std::nullopt;
    candidate.TimeColumn = static_cast<int>(column) + 1;
    const std::optional<std::u16string> epoch = EpochUnit(form->First);
    candidate.Kind = epoch && candidate.Hint.Unit.empty() ? TimeKind::Epoch : TimeKind::Elapsed;
    candidate.Unit = candidate.Kind == TimeKind::Epoch ? *epoch : candidate.Hint.Unit;
    if (candidate.Unit.empty()) {
        const std::u16string seconds = FormatOf(*form, u"s", trial.Letters());
        if (!trial.FitsFirstRows(seconds, texts, false)) return std::nullopt;
        candidate.Unit = UsualUnit(trial.Read(seconds, texts, false).MedianStep, form->First);
    }
    candidate.Shape.Format = FormatOf(*form, candidate.Unit, trial.Letters());
    if (!trial.FitsFirstRows(candidate.Shape.Format, texts, false)) return std::nullopt;
    candidate.Reading = trial.Read(candidate.Shape.Format, texts, false);
    return candidate;
}

}  // namespace

std::vector<TimeCandidate> FindNumberCandidates(const TableTrial& trial) {
    std::vector<TimeCandidate> found;
    for (std::size_t column = 0; column < trial.Columns(); ++column) {
        if (std::optional<TimeCandidate> candidate = TryColumn(trial, column))
            found.push_back(std::move(*candidate));
    }
    return found;
}

}  // namespace kelvarin::guess
