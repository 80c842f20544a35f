#include <utility>

#include "host/check/CheckHost.h"
#include "host/check/CheckWords.h"
#include "host/check/Findings.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::uint64_t MostNamedLine = 999;  // the greatest value of the setting FirstLine

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
    const bool isRelative = result.Reading.DateFrom == TimeSource::Date::None;
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
    const bool isRule = result.Dropped.Of(DropReason::Repeats).Count() * 2 >= result.Dropped.Count();
    if (shared.RowsEach == 0 || !isRule) return {};
    const Rhythm rhythm = result.Series->GetRhythm();
    const std::string median = SpanInWords(rhythm.Median);
    const double step = static_cast<double>(rhythm.Median) / static_cast<double>(shared.RowsEach);
    const bool isTooCoarse = rhythm.Median <= shared.Finest;
    if (!isTooCoarse) {
        return Phrase(
            "{} rows share each time, and the times lie {} apart: if they are of several sources in turn, "
            "split the file by the column that tells them apart",
            shared.RowsEach, median);
    }
    if (step < 1) {
        return Phrase(
            "{} rows share each nanosecond, the finest time there is; all are kept on an axis that is a "
            "thousand times as long, with a fixed interval of {} for {}: {}",
            shared.RowsEach, SpanInWords(step * 1000), SpanInWords(step),
            IntervalOptions(result, step * 1000));
    }
    const std::string options = IntervalOptions(result, step);
    return shared.IsEven ? Phrase("{} rows share each {}: a fixed interval of {}? {}", shared.RowsEach,
                                  median, SpanInWords(step), options)
                         : Phrase(
                               "about {} rows share each {}, not always as many: a fixed interval of {} "
                               "would be right on average only: {}",
                               shared.RowsEach, median, SpanInWords(step), options);
}

std::string FallRemedy(const CheckResult& result) {
    constexpr std::int64_t Hour = 3'600'000'000'000;
    const DroppedRows& dropped = result.Dropped;
    if (dropped.RunsBackwards()) {
        const int head = result.Reading.FirstDataLine - 1;
        return Phrase(
            "the file runs backwards; turn its rows round, where there are head, tail and tac: (head -n {} "
            "FILE; tail -n +{} FILE | tac) > TURNED",
            head, head + 1);
    }
    const std::string before = MomentInWords(result.Reading, dropped.BeforeFirstFall());
    const bool isNight = before.size() > 13 && (before.substr(11, 2) == "01" || before.substr(11, 2) == "02");
    if (result.Reading.DateFrom == TimeSource::Date::FromColumn && dropped.DeepestFall() <= Hour && isNight) {
        return Phrase(
            "the clock went back by an hour at most, at night: the end of summer time? The rows of the hour "
            "that comes twice need another time: --rejects FILE");
    }
    return Phrase(
        "sort the rows by time, or, if they are of several sources, split the file by the column that tells "
        "them apart");
}

// Names and units among the rows also turn their columns into text.
std::string HeadRemedy(const CheckResult& result) {
    const std::uint64_t first = result.Series->FirstLine();
    const std::uint64_t last = result.Dropped.Of(DropReason::UnreadableAtStart).Last().Line;
    if (first > MostNamedLine) return {};
    return Phrase("names and units among the rows make text of their columns; to begin the table below: {}",
                  FormatOptions(result.Reading, last + 1 == first ? last : 0, first));
}

struct DropWords {
    DropReason Reason;
    const char* Kind;
};

// In the order of telling.
constexpr DropWords AllReasons[] = {
    {DropReason::Empty, "emptyRow"},
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
        case DropReason::Empty:
            return Phrase("{} dropped with separators and blanks only: {}", count, lines);
        case DropReason::Unreadable:
            if (format.empty()) return Phrase("{} dropped, since no format for times is set", count);
            return Phrase("{} dropped without a time that the format '{}' reads: {}, the first {}", count,
                          format, lines, text);
        case DropReason::UnreadableAtStart:
            return Phrase("{} dropped above the first with a time: {}, the first {}", count, lines, text);
        case DropReason::UnreadableAtEnd:
            return Phrase("{} dropped below the last with a time: {}, the first {}", count, lines, text);
        case DropReason::Repeats:
            return Phrase("{} dropped for repeating the time of the row before: {}", count, lines);
        case DropReason::Falls:
            return Phrase("{} dropped for being earlier than a row before, the first by {}: {}", count,
                          SpanInWords(result.Dropped.FirstFall()), lines);
        case DropReason::NotLater:
            return Phrase("{} dropped for not being later than a row before: {}", count, lines);
        case DropReason::OutOfRange:
            return Phrase("{} dropped with a time outside the years that can be stored: {}, the first {}",
                          count, lines, text);
        case DropReason::NoStep:
            return Phrase("{} dropped, since the fixed interval doesn't lead beyond the row before: {}",
                          count, lines);
        case DropReason::Unknown:
            break;
    }
    return Phrase("{} dropped; the file could not be read again to say why", count);
}

std::string RemedyOf(const CheckResult& result, DropReason reason) {
    switch (reason) {
        case DropReason::Unreadable:
            return Phrase("to mend in a file of its own: --rejects FILE");
        case DropReason::UnreadableAtStart:
            return HeadRemedy(result);
        case DropReason::UnreadableAtEnd:
            return Phrase("a legend or sums are no loss; a row that was cut off is");
        case DropReason::Empty:
            return Phrase("nothing is lost");
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

void JudgeEarlyTimes(const CheckResult& result, std::vector<Finding>& findings) {
    const FilePlaces& places = result.Before1990;
    if (places.Count() == 0) return;
    findings.push_back({"before1990", true,
                        Phrase("{} before 1990, which are stored but can't be processed by every host: {}",
                               RowsInWords(places.Count()), LinesInWords(places)),
                        Phrase("give them later dates in the file, or a fixed interval in relative time")});
}

void JudgeRowsAbove(const CheckResult& result, std::vector<Finding>& findings) {
    if (result.Above.First == 0) return;
    const std::uint64_t count = result.Above.Last - result.Above.First + 1;
    findings.push_back({"rowsAbove", true,
                        count == 1 ? Phrase("line {} is not read, but looks like a row", result.Above.First)
                                   : Phrase("lines {} to {} above the table are not read, but look like rows",
                                            result.Above.First, result.Above.Last),
                        Phrase("name the table's start: {}", TableOptions(result))});
}

}  // namespace

std::string TableOptions(const CheckResult& result) {
    const RowsAbove& rows = result.Above;
    TimeSource reading = result.Reading;
    reading.Separator = rows.Separator;
    return FormatOptions(reading, rows.FollowsText ? rows.First - 1 : 0, rows.First);
}

void JudgeDropped(const CheckResult& result, const std::string& timeAdvice, std::vector<Finding>& findings) {
    JudgeRowsAbove(result, findings);
    const DroppedRows& dropped = result.Dropped;
    const bool isEstimate = dropped.Examined() < dropped.Count();
    for (const DropWords& words : AllReasons) {
        const FilePlaces& places = dropped.Of(words.Reason);
        if (places.Count() == 0) continue;
        const std::string count =
            RowsInWords(places.Count(), isEstimate && places.Count() != dropped.Count());
        const bool isFault = words.Reason != DropReason::Empty;
        Finding finding{words.Kind, isFault, TextOf(result, words.Reason, count),
                        RemedyOf(result, words.Reason)};
        if (words.Reason <= DropReason::UnreadableAtEnd && !dropped.BetterFormat().empty()) {
            const std::string format = Utf16ToUtf8(dropped.BetterFormat());
            finding.Remedy = Phrase("another format reads them: {}", SetOption("TimestampFormat", format));
        } else if (words.Reason == DropReason::Unreadable && !timeAdvice.empty()) {
            finding.Remedy = timeAdvice;
        }
        findings.push_back(std::move(finding));
    }
    JudgeEarlyTimes(result, findings);
}

}  // namespace kelvarin::check
