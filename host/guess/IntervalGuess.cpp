// What is left where no format reads the times of a file: a fixed interval.
//
// A text that would be a time but for one letter, as the T of "2024-01-31T12:00:00" where T is the letter of
// the day, can't be read by any format. With that letter made a blank here the module reads it, so that the
// distance of the rows and the start are known, and both can be set.
#include <algorithm>

#include "contract/TimeStamp.h"
#include "host/guess/GuessParts.h"
#include "host/language/Phrase.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
namespace {

bool HasTwelveHours(const TableTrial& trial) {
    bool isFound = false;
    for (std::size_t column = 0; column < trial.Columns(); ++column) {
        for (const std::u16string& example : trial.Examples(trial.Texts(column))) {
            for (const FormatShape& shape : ShapesOf(example, trial.Letters()))
                isFound |= shape.IsTwelveHours;
        }
    }
    return isFound;
}

// Takes the times of a column whose texts no format reads because of one letter.
void GuessFromBlocked(const TimeCandidate& times, char16_t letter, TimeGuess& guess) {
    const TimeReading& reading = times.Reading;
    // The step in the largest unit that makes a whole number of it.
    std::size_t unit = 0;
    while (reading.MedianStep % IntervalUnits[unit].Nanoseconds != 0) ++unit;
    const std::int64_t value = reading.MedianStep / IntervalUnits[unit].Nanoseconds;
    const std::string start = std::to_string(reading.First / Second);
    guess.IsFixedInterval = true;
    guess.Settings = {{"DateSetting", "1"},
                      {"StartDate", start},
                      {"TimeSetting", "1"},
                      {"IntervalValue", std::to_string(value)},
                      {"IntervalUnit", std::to_string(unit)},
                      {"Adjust", "1"},
                      {"AdjustMode", "0"},
                      {"AdjustTime", AdjustTimeFor(CTimeStamp(reading.First).DaytimeToTIME(false))}};
    guess.Read = reading.Read;
    guess.Rising = reading.Rising;
    guess.Basis = Phrase("a fixed interval of {} {} from the time of the first row, as column {} tells",
                         value, Utf16ToUtf8(IntervalUnits[unit].Name), times.TimeColumn);
    guess.Objections.push_back(Phrase("no format can read column {}: its letter {} is a field of the format",
                                      times.TimeColumn, Utf16ToUtf8(std::u16string(1, letter))));
    // The letters of the other language are Y, M, D, h, m and s.
    if (letter == u'T' || letter == u'J')
        guess.OtherWay = {Phrase("in English the format holds it"), {}, RemedyAction::SwitchToEnglish};
    const std::int64_t span = WrappingMultiply(reading.MedianStep, static_cast<std::int64_t>(guess.Rows - 1));
    const bool isRegular =
        reading.Rising == guess.Rows && WrappingSubtract(reading.Last, reading.First) == span;
    guess.Sureness = isRegular ? Certainty::Likely : Certainty::Uncertain;
    if (!isRegular)
        guess.Objections.push_back(
            Phrase("the rows do not follow each other evenly, so that an interval is wrong for some"));
}
}  // namespace

bool GuessFromUnreadableTimes(const TableTrial& trial, TimeGuess& guess) {
    for (std::size_t column = 0; column < trial.Columns(); ++column) {
        TextList texts = trial.Texts(column);
        std::vector<FormatShape> shapes;
        for (const std::u16string& example : trial.Examples(texts)) {
            for (FormatShape& shape : ShapesOf(example, trial.Letters())) {
                if (shape.Blocked == u'\0' || shape.IsTwelveHours || shape.Order == DateOrder::NoDate)
                    continue;
                if (!shape.RangeMark.empty()) shape.Format = shape.FormatUpToMark;
                shapes.push_back(std::move(shape));
            }
        }
        if (shapes.empty()) continue;
        for (std::u16string& text : texts) {
            if (!shapes.front().RangeMark.empty()) text = text.substr(0, text.find(shapes.front().RangeMark));
            std::replace(text.begin(), text.end(), shapes.front().Blocked, u' ');
        }
        std::optional<TimeCandidate> best = BestOrder(trial, shapes, texts, HintOf(trial.Sample(), column));
        // An interval from the distance of the rows needs rows that mostly follow each other.
        if (!best || best->Reading.RisingPart() < 0.5 || best->Reading.MedianStep <= 0) continue;
        best->TimeColumn = static_cast<int>(column) + 1;
        GuessFromBlocked(*best, shapes.front().Blocked, guess);
        return true;
    }
    return false;
}

void GuessAnyInterval(const TableTrial& trial, TimeGuess& guess) {
    guess.IsFixedInterval = true;
    guess.Settings = {
        {"DateSetting", "2"}, {"TimeSetting", "1"}, {"IntervalValue", "1"}, {"IntervalUnit", "2"}};
    guess.Sureness = Certainty::Uncertain;
    guess.Basis = Phrase("a fixed interval of {} {}", 1, "s");
    guess.Objections.push_back(
        Phrase("no column holds times that a format can read; the interval is a mere example"));
    if (HasTwelveHours(trial))
        guess.Objections.push_back(Phrase("no format can read a clock of twelve hours (AM, PM)"));
}
}  // namespace kelvarin::guess
