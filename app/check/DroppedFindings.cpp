#include <utility>

#include "app/check/CheckHost.h"
#include "app/check/CheckWords.h"
#include "app/check/Findings.h"
#include "app/language/Phrase.h"
#include "platform/framework/Text.h"

namespace {

// Options for a fixed interval in place of times that are too coarse. The time of day of the first row goes
// in as a correction, since of the start date only the date counts.
std::string IntervalOptions(const CheckResult& result, double step) {
    constexpr std::pair<std::int64_t, int> Units[] = {{1'000'000'000, 2}, {1'000'000, 3}, {1'000, 4}, {1, 5}};
    const auto whole = static_cast<std::int64_t>(step);
    std::pair<std::int64_t, int> unit = Units[3];
    for (const auto& candidate : Units) {
        if (whole % candidate.first != 0) continue;
        unit = candidate;
        break;
    }
    const bool isRelative = result.Reading.DateFrom == TimeReading::Date::None;
    std::string options = SetOption("DateSetting", isRelative ? 2 : 1) + " " + SetOption("TimeSetting", 1) +
                          " " + SetOption("IntervalValue", whole / unit.first) + " " +
                          SetOption("IntervalUnit", unit.second);
    if (isRelative) return options;
    const std::int64_t start = result.Series->First() / Units[0].first;
    return options + " " + SetOption("StartDate", start) + " " + SetOption("Adjust", 1) + " " +
           SetOption("AdjustMode", 1) + " " + SetOption("AdjustTime", start);
}

std::string RepeatRemedy(const CheckResult& result) {
    const SharedTimes shared = result.Series->GetSharedTimes();
    if (shared.RowsEach == 0) return {};
    const Rhythm rhythm = result.Series->GetRhythm();
    const std::string median = SpanInWords(rhythm.Median);
    const double step = static_cast<double>(rhythm.Median) / static_cast<double>(shared.RowsEach);
    const bool isTooCoarse = rhythm.Median <= shared.Finest;
    if (!isTooCoarse) {
        return Phrase(
            "{} rows share each time, and the times lie {} apart: if they are of several sources in turn, "
            "split "
            "the file by the column that tells them apart",
            shared.RowsEach, median);
    }
    if (step < 1) {
        return Phrase(
            "{} rows share each nanosecond, the finest time there is: an import can only keep one of them",
            shared.RowsEach);
    }
    const std::string options = IntervalOptions(result, step);
    return shared.IsEven
               ? Phrase("{} rows share each {}: a fixed interval of {}? {}", shared.RowsEach, median,
                        SpanInWords(step), options)
               : Phrase(
                     "about {} rows share each {}, not always as many: a fixed interval of {} would "
                     "be right on average only: {}",
                     shared.RowsEach, median, SpanInWords(step), options);
}

std::string FallRemedy(const CheckResult& result) {
    constexpr std::int64_t Hour = 3'600'000'000'000;
    const DroppedRows& dropped = result.Dropped;
    if (dropped.RunsBackwards()) {
        const int head = result.Reading.FirstDataLine - 1;
        return Phrase(
            "the file runs backwards; turn its rows round, where there are head, tail and tac: "
            "(head -n {} FILE; tail -n +{} FILE | tac) > TURNED",
            head, head + 1);
    }
    const std::string before = MomentInWords(result.Reading, dropped.BeforeFirstFall());
    const bool isNight = before.size() > 13 && (before.substr(11, 2) == "01" || before.substr(11, 2) == "02");
    if (result.Reading.DateFrom == TimeReading::Date::FromColumn && dropped.DeepestFall() <= Hour &&
        isNight) {
        return Phrase(
            "the clock went back by an hour at most, at night: the end of summer time? The rows of the "
            "hour that comes twice need another time: --rejects FILE");
    }
    return Phrase(
        "sort the rows by time, or, if they are of several sources, split the file by the column that "
        "tells them apart");
}

struct DropWords {
    DropReason Reason;
    const char* Kind;
};

// In the order of telling.
constexpr DropWords AllReasons[] = {
    {DropReason::Unreadable, "unreadableTime"},
    {DropReason::UnreadableAtStart, "unreadableAtStart"},
    {DropReason::UnreadableAtEnd, "unreadableAtEnd"},
    {DropReason::Repeats, "repeatedTime"},
    {DropReason::Falls, "fallingTime"},
    {DropReason::NotLater, "notLater"},
    {DropReason::OutOfRange, "outOfRange"},
    {DropReason::NoStep, "noStep"},
    {DropReason::Unknown, "unknown"},
};

std::string TextOf(const CheckResult& result, DropReason reason, const std::string& count) {
    const FilePlaces& places = result.Dropped.Of(reason);
    const std::string lines = LinesInWords(places);
    const std::string text = places.FirstFew().empty() ? "" : Quoted(places.FirstFew().front().Text);
    const std::string format = Utf16ToUtf8(result.Reading.Format);
    switch (reason) {
        case DropReason::Unreadable:
            if (format.empty()) return Phrase("{} rows dropped: no format for their times is set", count);
            return Phrase("{} rows dropped: the format '{}' reads no time in them: {}, the first {}", count,
                          format, lines, text);
        case DropReason::UnreadableAtStart:
            return Phrase("{} rows dropped above the first with a time: {}, the first {}", count, lines,
                          text);
        case DropReason::UnreadableAtEnd:
            return Phrase("{} rows dropped below the last with a time: {}, the first {}", count, lines, text);
        case DropReason::Repeats:
            return Phrase("{} rows dropped: they repeat the time of the row before: {}", count, lines);
        case DropReason::Falls:
            return Phrase("{} rows dropped: they are earlier than a row before, the first by {}: {}", count,
                          SpanInWords(result.Dropped.FirstFall()), lines);
        case DropReason::NotLater:
            return Phrase("{} rows dropped: their times don't rise: {}", count, lines);
        case DropReason::OutOfRange:
            return Phrase(
                "{} rows dropped: their times lie outside the years that can be stored: {}, the first {}",
                count, lines, text);
        case DropReason::NoStep:
            return Phrase("{} rows dropped: the fixed interval doesn't lead beyond the row before: {}", count,
                          lines);
        case DropReason::Unknown:
            break;
    }
    return Phrase("{} rows dropped; they could not be looked at again", count);
}

std::string RemedyOf(const CheckResult& result, DropReason reason) {
    switch (reason) {
        case DropReason::Unreadable:
            return Phrase("mend them in a file of their own: --rejects FILE");
        case DropReason::UnreadableAtStart:
            return Phrase("nothing is lost if they hold units or the like");
        case DropReason::UnreadableAtEnd:
            return Phrase("nothing is lost if they hold a legend or sums");
        case DropReason::Repeats:
            return RepeatRemedy(result);
        case DropReason::Falls:
            return FallRemedy(result);
        case DropReason::NoStep:
            return Phrase("a longer one: --set IntervalValue=1 --set IntervalUnit=2");
        default:
            return {};
    }
}

}  // namespace

void JudgeDropped(const CheckResult& result, const std::string& timeAdvice, std::vector<Finding>& findings) {
    const DroppedRows& dropped = result.Dropped;
    const bool isEstimate = dropped.Examined() < dropped.Count();
    for (const DropWords& words : AllReasons) {
        const FilePlaces& places = dropped.Of(words.Reason);
        if (places.Count() == 0) continue;
        std::string count = std::to_string(places.Count());
        if (isEstimate && places.Count() != dropped.Count()) count = Phrase("about {}", count);
        Finding finding{words.Kind, true, TextOf(result, words.Reason, count),
                        RemedyOf(result, words.Reason)};
        if (words.Reason <= DropReason::UnreadableAtEnd && !dropped.BetterFormat().empty()) {
            const std::string format = Utf16ToUtf8(dropped.BetterFormat());
            finding.Remedy = Phrase("another format reads them: {}", SetOption("TimestampFormat", format));
        } else if (words.Reason == DropReason::Unreadable && !timeAdvice.empty()) {
            finding.Remedy = timeAdvice;
        }
        findings.push_back(std::move(finding));
    }
    if (result.Before1990.Count() != 0) {
        findings.push_back({"before1990", true,
                            Phrase("{} rows lie before 1990, which the host can't process: {}",
                                   result.Before1990.Count(), LinesInWords(result.Before1990)),
                            Phrase("as relative time they can be: --set DateSetting=2")});
    }
}
