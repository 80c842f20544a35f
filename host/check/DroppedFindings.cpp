#include <algorithm>
#include <utility>

#include "host/check/CheckWords.h"
#include "host/check/Findings.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::uint64_t MostNamedLine = 999;  // the greatest value of the setting FirstLine

// A fixed interval, in nanoseconds, in place of times that are too coarse. The time of day of the first row
// goes in as a correction, since of the start date only the date counts.
SettingList IntervalSettings(const CheckResult& result, double step) {
    const std::int64_t whole = std::max<std::int64_t>(static_cast<std::int64_t>(step), 1);
    std::int64_t size = Second;
    int unit = 2;  // seconds; a thousandth each further on
    for (; whole % size != 0; size /= 1000) ++unit;
    const bool isRelative = result.Format.DateSetting == DateNone;
    SettingList settings = {{"DateSetting", isRelative ? "2" : "1"},
                            {"TimeSetting", "1"},
                            {"IntervalValue", std::to_string(whole / size)},
                            {"IntervalUnit", std::to_string(unit)}};
    if (isRelative) return settings;
    const std::string start = std::to_string(result.Series->First() / Second);
    settings.insert(settings.end(),
                    {{"StartDate", start}, {"Adjust", "1"}, {"AdjustMode", "1"}, {"AdjustTime", start}});
    return settings;
}

Remedy RepeatAdvice(const CheckResult& result) {
    const SharedTimes shared = result.Series->GetSharedTimes();
    const bool isRule = result.Dropped.Of(DropKind::Repeats).Count() * 2 >= result.Dropped.Count();
    if (shared.RowsEach == 0 || !isRule) return {};
    const std::int64_t medianStep = result.Series->Intervals().Median;
    const std::string median = SpanInWords(medianStep);
    if (medianStep > shared.Finest) {
        return {
            Phrase("{} rows share each time, and the times are {} apart: if they are of several sources in "
                   "turn, split the file by the column that tells them apart",
                   shared.RowsEach, median)};
    }
    const double step = static_cast<double>(medianStep) / static_cast<double>(shared.RowsEach);
    if (step < 1) {
        return {
            Phrase("{} rows share each nanosecond, the finest time there is; all are kept on an axis that "
                   "is a thousand times as long, with a fixed interval of {} for {}",
                   shared.RowsEach, SpanInWords(step * 1000), SpanInWords(step)),
            IntervalSettings(result, step * 1000)};
    }
    return {
        shared.IsEven
            ? Phrase("{} rows share each {}; perhaps at a fixed interval of {}", shared.RowsEach, median,
                     SpanInWords(step))
            : Phrase("about {} rows share each {}, not always as many; a fixed interval of {} would be right "
                     "on average only",
                     shared.RowsEach, median, SpanInWords(step)),
        IntervalSettings(result, step)};
}

Remedy FallAdvice(const CheckResult& result) {
    const FallSummary& falls = result.Dropped.Falls();
    if (falls.RunsBackwards())
        return {
            Phrase("the file runs backwards; reverse the order of its rows"), {}, RemedyAction::ReverseRows};
    const std::string before = MomentInWords(result.Format, falls.BeforeFirst);
    const bool isNight = before.size() > 13 && (before.substr(11, 2) == "01" || before.substr(11, 2) == "02");
    if (result.Format.DateSetting == DateFromColumn && falls.Deepest <= 3600 * Second && isNight) {
        return {
            Phrase("the clock went back by an hour at most, at night: the end of summer time? The rows of "
                   "the hour that comes twice need another time"),
            {},
            RemedyAction::ExtractRows};
    }
    return {
        Phrase("sort the rows by time, or, if they are of several sources, split the file by the column that "
               "tells them apart")};
}

// Names and units among the rows also make text of their columns.
Remedy HeadAdvice(const CheckResult& result) {
    const std::uint64_t first = result.Series->FirstLine();
    const std::uint64_t last = result.Dropped.Of(DropKind::UnreadableAtStart).Last().Line;
    if (first > MostNamedLine) return {};
    Reading table = result.Format;
    table.FirstDataLine = static_cast<int>(first);
    table.HeaderLine = last + 1 == first ? table.FirstDataLine - 1 : 0;
    return {Phrase("names and units among the rows make text of their columns; to begin the table below"),
            TableSettings(table)};
}

// What is found if rows were dropped for this reason; `count` rows in `lines`, the first of which is `first`.
std::pair<std::string, Remedy> Describe(const CheckResult& result, DropKind kind, const std::string& count,
                                        const std::string& lines, const std::string& first) {
    const std::string format = Utf16ToUtf8(result.Format.TimestampFormat);
    switch (kind) {
        case DropKind::Empty:
            return {Phrase("{} dropped with separators and blanks only: {}", count, lines),
                    {Phrase("nothing is lost")}};
        case DropKind::UnreadableAtStart:
            return {Phrase("{} dropped above the first with a time: {}, the first {}", count, lines, first),
                    HeadAdvice(result)};
        case DropKind::Unreadable:
            return {format.empty()
                        ? Phrase("{} dropped, since no format for times is set", count)
                        : Phrase("{} dropped without a time that the format '{}' reads: {}, the first {}",
                                 count, format, lines, first),
                    {Phrase("to mend in a file of its own"), {}, RemedyAction::ExtractRows}};
        case DropKind::UnreadableAtEnd:
            return {Phrase("{} dropped below the last with a time: {}, the first {}", count, lines, first),
                    {Phrase("a legend or sums are no loss; a row that was cut off is")}};
        case DropKind::Repeats:
            return {Phrase("{} dropped for repeating the time of the row before: {}", count, lines),
                    RepeatAdvice(result)};
        case DropKind::Falls:
            return {Phrase("{} dropped for being earlier than a row before, the first by {}: {}", count,
                           SpanInWords(result.Dropped.Falls().First), lines),
                    FallAdvice(result)};
        case DropKind::OutOfRange:
            return {Phrase("{} dropped with a time outside the years that can be stored: {}, the first {}",
                           count, lines, first),
                    {}};
        case DropKind::NoStep:
            break;
    }
    return {
        Phrase("{} dropped, since the fixed interval doesn't lead beyond the row before: {}", count, lines),
        {Phrase("a longer one"), {{"IntervalValue", "1"}, {"IntervalUnit", "2"}}}};
}

void JudgeKind(const CheckResult& result, DropKind kind, std::vector<Finding>& findings) {
    const FilePlaces& places = result.Dropped.Of(kind);
    if (places.Count() == 0) return;
    auto [text, advice] = Describe(result, kind, RowsInWords(places.Count()), LinesInWords(places),
                                   Quoted(places.FirstFew().front().Text));
    const bool isUnreadable = kind == DropKind::Unreadable || kind == DropKind::UnreadableAtStart ||
                              kind == DropKind::UnreadableAtEnd;
    if (isUnreadable && !result.BetterFormat.empty()) {
        advice = {Phrase("another format reads them"),
                  {{"TimestampFormat", Utf16ToUtf8(result.BetterFormat)}}};
    } else if (kind == DropKind::Unreadable && !result.TimeAdvice.Text.empty()) {
        advice = result.TimeAdvice;
    }
    findings.push_back({NameOf(kind), kind != DropKind::Empty, std::move(text), std::move(advice)});
}

void JudgeRowsAbove(const CheckResult& result, std::vector<Finding>& findings) {
    const RowsAbove& above = result.Above;
    if (above.First == 0) return;
    findings.push_back({"rowsAbove",
                        true,
                        above.First == above.Last
                            ? Phrase("line {} is not read, but looks like a row", above.First)
                            : Phrase("lines {} to {} above the table are not read, but look like rows",
                                     above.First, above.Last),
                        {Phrase("name the table's start"), TableSettings(TableAbove(result))}});
}

void JudgeEarlyTimes(const CheckResult& result, std::vector<Finding>& findings) {
    const FilePlaces& places = result.Before1990;
    if (places.Count() == 0) return;
    findings.push_back({"before1990",
                        true,
                        Phrase("{} before 1990, which are stored but can't be processed by every host: {}",
                               RowsInWords(places.Count()), LinesInWords(places)),
                        {Phrase("give them later dates in the file, or a fixed interval in relative time")}});
}

}  // namespace

void JudgeDropped(const CheckResult& result, std::vector<Finding>& findings) {
    JudgeRowsAbove(result, findings);
    // In the order of telling.
    for (const DropKind kind :
         {DropKind::Empty, DropKind::Unreadable, DropKind::UnreadableAtStart, DropKind::UnreadableAtEnd,
          DropKind::Repeats, DropKind::Falls, DropKind::OutOfRange, DropKind::NoStep})
        JudgeKind(result, kind, findings);
    JudgeEarlyTimes(result, findings);
}

}  // namespace kelvarin::check
