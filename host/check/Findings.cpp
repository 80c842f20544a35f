#include "host/check/Findings.h"

#include <algorithm>
#include <utility>

#include "contract/TimeStamp.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {
namespace {
constexpr std::int64_t Second = 1'000'000'000;
constexpr std::uint64_t MostNamedLine = 999;  // the greatest value of the setting FirstLine
constexpr std::size_t MostNamed = 5;          // lines, beside the last

// The finding with where it is in the file.
Finding At(const FilePlaces& places, Finding finding) {
    finding.Count = places.Count;
    for (const FilePlace& place : places.FirstFew) finding.Lines.push_back(place.Line);
    if (places.Count > places.FirstFew.size()) finding.Lines.push_back(places.Last.Line);
    return finding;
}

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
    const CTimeStamp start(result.Series->First);
    settings.insert(settings.end(), {{"StartDate", std::to_string(start.GetCTime().Seconds)},
                                     {"Adjust", "1"},
                                     {"AdjustMode", "1"},
                                     {"AdjustTime", AdjustTimeFor(start.DaytimeToTIME(false))}});
    return settings;
}

Remedy RepeatAdvice(const CheckResult& result) {
    const SharedTimes shared = result.Series->GetSharedTimes();
    const bool isRule = result.Dropped.Of(DropKind::Repeats).Count * 2 >= result.Dropped.Count();
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
        return {Phrase("the file runs backwards; a clean copy has its rows in order"),
                {},
                RemedyAction::CopyFile};
    const std::string before = MomentInWords(result.Format, falls.BeforeFirst);
    const bool isNight = before.size() > 13 && (before.substr(11, 2) == "01" || before.substr(11, 2) == "02");
    if (result.Format.DateSetting == DateFromColumn && falls.Deepest <= 3600 * Second && isNight) {
        return {
            Phrase("the clock went back by an hour at most, at night: the end of summer time? The rows of "
                   "the hour that comes twice need another time"),
            {},
            RemedyAction::ExtractRows};
    }
    return {Phrase("a clean copy has its rows in order, if you like a file for each of several sources"),
            {},
            RemedyAction::CopyFile};
}

// Names and units among the rows also make text of their columns.
Remedy HeadAdvice(const CheckResult& result) {
    const std::uint64_t first = result.Series->FirstLine;
    const std::uint64_t last = result.Dropped.Of(DropKind::UnreadableAtStart).Last.Line;
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
    if (places.Count == 0) return;
    auto [text, advice] = Describe(result, kind, RowsInWords(places.Count), LinesInWords(places),
                                   Quoted(places.FirstFew.front().Text));
    const bool isUnreadable = kind == DropKind::Unreadable || kind == DropKind::UnreadableAtStart ||
                              kind == DropKind::UnreadableAtEnd;
    if (isUnreadable && !result.BetterFormat.empty()) {
        advice = {Phrase("another format reads them"),
                  {{"TimestampFormat", Utf16ToUtf8(result.BetterFormat)}}};
    } else if (kind == DropKind::Unreadable && !result.TimeAdvice.Text.empty()) {
        advice = result.TimeAdvice;
    }
    findings.push_back(
        At(places, {NameOf(kind), kind != DropKind::Empty, std::move(text), std::move(advice)}));
}

Remedy AdviceAbove(const CheckResult& result) {
    const SettingList& settings = result.Above.Settings;
    if (settings.empty()) return {Phrase("a clean copy has them"), {}, RemedyAction::CopyFile};
    return {Phrase("name the table's start"), settings};
}

void JudgeRowsAbove(const CheckResult& result, std::vector<Finding>& findings) {
    const RowsAbove& above = result.Above;
    if (above.First == 0) return;
    findings.push_back(
        {"rowsAbove", true,
         above.First == above.Last ? Phrase("line {} is not read, but looks like a row", above.First)
                                   : Phrase("lines {} to {} above the table are not read, but look like rows",
                                            above.First, above.Last),
         AdviceAbove(result), above.Last - above.First + 1,
         above.First == above.Last ? std::vector{above.First} : std::vector{above.First, above.Last}});
}

void JudgeEarlyTimes(const CheckResult& result, std::vector<Finding>& findings) {
    const FilePlaces& places = result.Before1990;
    if (places.Count == 0) return;
    findings.push_back(
        At(places, {"before1990",
                    true,
                    Phrase("{} before 1990, which are stored but can't be processed by every host: {}",
                           RowsInWords(places.Count), LinesInWords(places)),
                    {Phrase("give them later dates in the file, or a fixed interval in relative time")}}));
}

// What the run drops where no copy is read.
void JudgeLeftOut(const CheckResult& result, std::vector<Finding>& findings) {
    const FilePlaces& places = result.LeftOut;
    if (places.Count == 0) return;
    findings.push_back(At(places, {"leftOut",
                                   true,
                                   Phrase("{} without a time, left out of the clean copy that is read: {}",
                                          RowsInWords(places.Count), LinesInWords(places)),
                                   {Phrase("a legend or sums are no loss; a row that was cut off is")}}));
}

void JudgeDropped(const CheckResult& result, std::vector<Finding>& findings) {
    JudgeRowsAbove(result, findings);
    // In the order of telling.
    for (const DropKind kind :
         {DropKind::Empty, DropKind::Unreadable, DropKind::UnreadableAtStart, DropKind::UnreadableAtEnd,
          DropKind::Repeats, DropKind::Falls, DropKind::OutOfRange, DropKind::NoStep})
        JudgeKind(result, kind, findings);
    JudgeLeftOut(result, findings);
    JudgeEarlyTimes(result, findings);
}

bool AreMissingValues(const FilePlaces& cells) {
    const auto isMissing = [](const FilePlace& place) { return IsMissingValue(place.Text); };
    return isMissing(cells.Last) && std::all_of(cells.FirstFew.begin(), cells.FirstFew.end(), isMissing);
}

void JudgeCells(const CheckResult& result, std::vector<Finding>& findings) {
    std::uint64_t columns = 0;
    const ColumnCheck* first = nullptr;
    bool onlyMissing = true;
    for (const ColumnCheck& column : result.Columns) {
        if (column.Refused.Count == 0) continue;
        ++columns;
        onlyMissing &= AreMissingValues(column.Refused);
        if (first == nullptr) first = &column;
    }
    if (columns == 0) return;
    const std::string example = Quoted(first->Refused.FirstFew.front().Text);
    const Remedy lossless = {
        Phrase("those seen are the file's word for no value, such as {}: nothing is lost", example)};
    const Remedy mending = {
        Phrase("give the column a type that takes them, or mend them in a file of their own"),
        {},
        RemedyAction::ExtractRowsAndCells};
    Finding finding =
        At(first->Refused,
           {"refusedCells", true,
            Phrase("{} refused for not being of their column's type, in {}; their samples have no value",
                   CellsInWords(result.RefusedCells()),
                   columns == 1 ? Phrase("1 column") : Phrase("{} columns", columns)),
            onlyMissing ? lossless : mending});
    finding.Count = result.RefusedCells();
    finding.Column = columns == 1 ? first->Column : 0;
    findings.push_back(std::move(finding));
}

void JudgeBlankLines(const CheckResult& result, std::vector<Finding>& findings) {
    if (result.Blank.Count == 0) return;
    findings.push_back(At(
        result.Blank, {"blankLines", false,
                       Phrase("blank lines in the table: {}; the module's own line numbers don't count them",
                              LinesInWords(result.Blank))}));
}

void JudgeGaps(const CheckResult& result, std::vector<Finding>& findings) {
    const IntervalStatistics intervals = result.Series->Intervals();
    if (intervals.Gaps == 0 || result.Format.TimeSetting == TimeInterval) return;
    const TimeStep& longest = result.Series->LongestSteps.front();
    const std::string median = SpanInWords(intervals.Median);
    const std::string length = SpanInWords(longest.Length());
    const std::string text =
        intervals.IsSteady ? Phrase("{} in rows that come every {}; the longest, {}, ends in line {}",
                                    intervals.Gaps == 1 ? Phrase("1 gap") : Phrase("{} gaps", intervals.Gaps),
                                    median, length, longest.Line)
                           : Phrase(
                                 "the rows come unevenly; {} intervals are beyond ten times the median of "
                                 "{}; the longest, {}, "
                                 "ends in line {}",
                                 intervals.Gaps, median, length, longest.Line);
    findings.push_back({"gaps", intervals.IsSteady, text, {}, intervals.Gaps, {longest.Line}});
}

std::string DayMonthText(DayMonthState state, std::uint64_t line) {
    const std::string words[] = {
        "",
        Phrase("day and month are in the right order: line {} has a day above 12", line),
        Phrase("day and month are in the right order: the other way the dates would fall in line {}", line),
        Phrase("day and month are in the right order: the rows run on over midnight in line {}", line),
        Phrase("the order of day and month is not proven: there is one date only"),
        Phrase("the order of day and month makes no difference here: they are equal"),
        Phrase("the order of day and month is not proven: the dates rise either way"),
        Phrase("day and month are likely in the wrong order: the other way the dates are closer together")};
    return words[static_cast<std::size_t>(state)];
}

void JudgeDayMonthOrder(const CheckResult& result, std::vector<Finding>& findings) {
    const DayMonthOrder& dates = result.Series->Dates;
    const DayMonthState state = dates.State();
    if (state == DayMonthState::NotChecked) return;
    const bool isFault = state == DayMonthState::OtherIsCloser;
    const bool isOpen = state == DayMonthState::OneDate || state == DayMonthState::Ambiguous;
    Remedy advice;
    if (isFault || isOpen) {
        const std::u16string other = WithDayAndMonthExchanged(result.Format.TimestampFormat, result.Letters);
        advice = {Phrase("the other order"), {{"TimestampFormat", Utf16ToUtf8(other)}}};
    }
    findings.push_back({"dateOrder", isFault, DayMonthText(state, dates.Line()), advice});
}

void JudgeRollOvers(const CheckResult& result, std::vector<Finding>& findings) {
    const std::uint64_t all = result.Series->RollOvers;
    const FilePlaces& doubtful = result.Series->DoubtfulRollOvers;
    if (doubtful.Count != 0) {
        findings.push_back(
            At(doubtful, {"doubtfulRollOvers",
                          true,
                          Phrase("a day was added where the time of day fell far from midnight: {}",
                                 LinesInWords(doubtful)),
                          {Phrase("was the clock set back, or are rows in disorder? All rows from there on "
                                  "are a day later")}}));
    }
    if (all > doubtful.Count) {
        const std::uint64_t plain = all - doubtful.Count;
        findings.push_back({"rollOvers", false, Phrase("midnights that the times run over: {}", plain)});
    }
}

void JudgeTimes(const CheckResult& result, std::vector<Finding>& findings) {
    JudgeRollOvers(result, findings);
    JudgeGaps(result, findings);
    JudgeDayMonthOrder(result, findings);
    if (result.Format.TimeSetting == TimeInterval) {
        findings.push_back(
            {"interval", false,
             Phrase("the times are counted by a fixed interval: nothing in the file can prove them")});
    }
    if (result.Series->Count == 0 && result.Dropped.Count() == 0) {
        findings.push_back({"noRows", result.Columns.size() != 0, Phrase("no row was stored")});
    }
}
}  // namespace

std::string LinesInWords(const FilePlaces& places) {
    const std::vector<FilePlace>& first = places.FirstFew;
    if (first.empty()) return {};
    if (places.Count == 1) return Phrase("line {}", first.front().Line);
    std::string lines;
    const std::size_t named = std::min(first.size(), MostNamed);
    for (std::size_t i = 0; i < named; ++i) lines += (i == 0 ? "" : ", ") + std::to_string(first[i].Line);
    const std::uint64_t last = places.Last.Line;
    if (last != first[named - 1].Line)
        lines += (places.Count > named + 1 ? " ... " : ", ") + std::to_string(last);
    return Phrase("lines {}", lines);
}

std::vector<Finding> Judge(const CheckResult& result) {
    std::vector<Finding> findings;
    if (!result.Begun) return findings;
    if (!result.Failure.empty() && !result.Failed)
        findings.push_back({"sidecar", true, Utf16ToUtf8(result.Failure)});
    JudgeDropped(result, findings);
    JudgeCells(result, findings);
    JudgeTimes(result, findings);
    JudgeBlankLines(result, findings);
    std::stable_partition(findings.begin(), findings.end(), [](const Finding& f) { return f.IsFault; });
    return findings;
}

bool IsClean(const CheckResult& result, const std::vector<Finding>& findings) {
    return result.Begun && !result.Failed && !result.Interrupted &&
           std::none_of(findings.begin(), findings.end(), [](const Finding& f) { return f.IsFault; });
}

SettingList TableSettings(const Reading& table) {
    const bool hasHeader = table.HeaderLine != 0;
    SettingList settings = {{"AutoFormat", "0"}, {"Separator", std::to_string(table.Separator)}};
    if (!table.OtherSeparator.empty())
        settings.emplace_back("OtherSeparator", Utf16ToUtf8(table.OtherSeparator));
    settings.emplace_back("MergeSeparators", table.MergeSeparators ? "1" : "0");
    settings.emplace_back("FirstLine", std::to_string(hasHeader ? table.HeaderLine : table.FirstDataLine));
    settings.emplace_back("ImportHeader", hasHeader ? "1" : "0");
    return settings;
}
}  // namespace kelvarin::check
