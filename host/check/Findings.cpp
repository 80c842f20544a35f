#include "host/check/Findings.h"

#include <algorithm>

#include "host/MissingValue.h"
#include "host/check/CheckWords.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

bool AreMissingValues(const FilePlaces& cells) {
    const auto isMissing = [](const FilePlace& place) { return IsMissingValue(place.Text); };
    return isMissing(cells.Last()) &&
           std::all_of(cells.FirstFew().begin(), cells.FirstFew().end(), isMissing);
}

void JudgeCells(const CheckResult& result, std::vector<Finding>& findings) {
    std::uint64_t columns = 0;
    std::string example;
    bool onlyMissing = true;
    for (const ColumnCheck& column : result.Columns) {
        if (column.Refused.Count() == 0) continue;
        ++columns;
        onlyMissing &= AreMissingValues(column.Refused);
        if (example.empty()) example = Quoted(column.Refused.FirstFew().front().Text);
    }
    if (columns == 0) return;
    const Remedy lossless = {
        Phrase("those seen are the file's word for no value, such as {}: nothing is lost", example)};
    const Remedy mending = {
        Phrase("give the column a type that takes them, in the dialog's page of signals, or "
               "mend them in a file of their own"),
        {},
        RemedyAction::ExtractRowsAndCells};
    findings.push_back(
        {"refusedCells", true,
         Phrase("{} refused for not being of their column's type, in {}; their samples have no value",
                CellsInWords(result.RefusedCells()),
                columns == 1 ? Phrase("1 column") : Phrase("{} columns", columns)),
         onlyMissing ? lossless : mending});
}

void JudgeBlankLines(const CheckResult& result, std::vector<Finding>& findings) {
    if (result.Blank.Count() == 0) return;
    findings.push_back({"blankLines", false,
                        Phrase("blank lines in the table: {}; the module's own line numbers don't count them",
                               LinesInWords(result.Blank))});
}

void JudgeGaps(const CheckResult& result, std::vector<Finding>& findings) {
    const IntervalStatistics intervals = result.Series->Intervals();
    if (intervals.Gaps == 0 || result.Format.TimeSetting == TimeInterval) return;
    const TimeStep& longest = result.Series->LongestSteps().front();
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
    findings.push_back({"gaps", intervals.IsSteady, text});
}

std::string DayMonthText(DayMonthState state, std::uint64_t line) {
    switch (state) {
        case DayMonthState::DayAbove12:
            return Phrase("day and month are in the right order: line {} has a day above 12", line);
        case DayMonthState::WouldFall:
            return Phrase(
                "day and month are in the right order: the other way the dates would fall in line {}", line);
        case DayMonthState::RunsOn:
            return Phrase("day and month are in the right order: the rows run on over midnight in line {}",
                          line);
        case DayMonthState::OneDate:
            return Phrase("the order of day and month is not proven: there is one date only");
        case DayMonthState::Same:
            return Phrase("the order of day and month makes no difference here: they are equal");
        case DayMonthState::Ambiguous:
            return Phrase("the order of day and month is not proven: the dates rise either way");
        case DayMonthState::OtherIsCloser:
            return Phrase(
                "day and month are likely in the wrong order: the other way the dates are closer together");
        case DayMonthState::NotChecked:
            break;
    }
    return {};
}

void JudgeDayMonthOrder(const CheckResult& result, std::vector<Finding>& findings) {
    const DayMonthOrder& dates = result.Series->Dates();
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
    const std::uint64_t all = result.Series->RollOvers();
    const FilePlaces& doubtful = result.Series->DoubtfulRollOvers();
    if (doubtful.Count() != 0) {
        findings.push_back({"doubtfulRollOvers",
                            true,
                            Phrase("a day was added where the time of day fell far from midnight: {}",
                                   LinesInWords(doubtful)),
                            {Phrase("was the clock set back, or are rows in disorder? All rows from there on "
                                    "are a day later")}});
    }
    if (all > doubtful.Count()) {
        const std::uint64_t plain = all - doubtful.Count();
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
    if (result.Series->Count() == 0 && result.Dropped.Count() == 0) {
        findings.push_back({"noRows", result.Columns.size() != 0, Phrase("no row was stored")});
    }
}

}  // namespace

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

Reading TableAbove(const CheckResult& result) {
    Reading table = result.Format;
    table.Separator = result.Above.Separator;
    table.FirstDataLine = static_cast<int>(result.Above.First);
    table.HeaderLine = result.Above.FollowsText ? table.FirstDataLine - 1 : 0;
    return table;
}

}  // namespace kelvarin::check
