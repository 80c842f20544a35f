#include "host/check/CheckWords.h"
#include "host/check/Findings.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

void JudgeGaps(const CheckResult& result, std::vector<Finding>& findings) {
    const Rhythm rhythm = result.Series->GetRhythm();
    if (rhythm.Gaps == 0 || result.Reading.IsInterval) return;
    const TimeStep longest = result.Series->LongestSteps().front();
    const std::string text =
        rhythm.IsSteady
            ? Phrase("{} in rows that come every {}; the longest, {}, ends in line {}",
                     rhythm.Gaps == 1 ? Phrase("1 gap") : Phrase("{} gaps", rhythm.Gaps),
                     SpanInWords(rhythm.Median), SpanInWords(longest.Length()), longest.Line)
            : Phrase(
                  "the rows come unevenly; {} intervals are beyond ten times the middle one of {}; the "
                  "longest, {}, ends in line {}",
                  rhythm.Gaps, SpanInWords(rhythm.Median), SpanInWords(longest.Length()), longest.Line);
    findings.push_back({"gaps", rhythm.IsSteady, text, {}});
}

std::string DateOrderText(DateOrderState state, std::uint64_t line) {
    switch (state) {
        case DateOrderState::DayAbove12:
            return Phrase("day and month are in the right order: line {} has a day above 12", line);
        case DateOrderState::WouldFall:
            return Phrase(
                "day and month are in the right order: the other way the dates would fall in line {}", line);
        case DateOrderState::RunsOn:
            return Phrase("day and month are in the right order: the rows run on over midnight in line {}",
                          line);
        case DateOrderState::OneDate:
            return Phrase("the order of day and month is not proven: there is one date only");
        case DateOrderState::Same:
            return Phrase("the order of day and month makes no difference here: they are equal");
        case DateOrderState::Ambiguous:
            return Phrase("the order of day and month is not proven: the dates rise either way");
        case DateOrderState::OtherIsEven:
            return Phrase("day and month are likely in the wrong order: the other way the dates lie closer");
        case DateOrderState::Unasked:
            break;
    }
    return {};
}

void JudgeDateOrder(const CheckResult& result, std::vector<Finding>& findings) {
    const DateOrder& dates = result.Series->Dates();
    const DateOrderState state = dates.State();
    if (state == DateOrderState::Unasked) return;
    const bool isFault = state == DateOrderState::OtherIsEven;
    const bool isOpen = state == DateOrderState::OneDate || state == DateOrderState::Ambiguous;
    std::string remedy;
    if (isFault || isOpen) {
        const std::string format = Utf16ToUtf8(result.Reading.WithDayAndMonthExchanged());
        remedy = Phrase("the other order: {}", SetOption("TimestampFormat", format));
    }
    findings.push_back({"dateOrder", isFault, DateOrderText(state, dates.Line()), remedy});
}

void JudgeRollOvers(const CheckResult& result, std::vector<Finding>& findings) {
    const std::uint64_t all = result.Series->RollOvers();
    const FilePlaces& doubtful = result.Series->DoubtfulRollOvers();
    if (doubtful.Count() != 0) {
        findings.push_back(
            {"doubtfulRollOvers", true,
             Phrase("a day was added where the time of day fell far from midnight: {}",
                    LinesInWords(doubtful)),
             Phrase("was the clock set back, or are rows in disorder? All rows from there on lie a "
                    "day later")});
    }
    if (all > doubtful.Count()) {
        const std::uint64_t plain = all - doubtful.Count();
        findings.push_back({"rollOvers", false, Phrase("midnights that the times run over: {}", plain), {}});
    }
}

}  // namespace

void JudgeTimes(const CheckResult& result, std::vector<Finding>& findings) {
    JudgeRollOvers(result, findings);
    JudgeGaps(result, findings);
    JudgeDateOrder(result, findings);
    if (result.Reading.IsInterval) {
        findings.push_back(
            {"interval",
             false,
             Phrase("the times are counted by a fixed interval: nothing in the file can prove them"),
             {}});
    }
    if (result.Series->Count() == 0 && result.Dropped.Count() == 0) {
        findings.push_back({"noRows", result.Columns.size() != 0, Phrase("no row was stored"), {}});
    }
}

}  // namespace kelvarin::check
