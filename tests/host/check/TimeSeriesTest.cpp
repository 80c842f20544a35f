// What a check works out of the times of the stored rows: intervals, gaps, dates, roll-overs, shared times.
#include "host/check/TimeSeries.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "contract/TimeStamp.h"

namespace {

using namespace kelvarin;
using check::DayMonthState;
using check::TimeSeries;

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Hour = 3600 * Second;
constexpr std::int64_t Day = 24 * Hour;
const std::u16string Letters = u"JMThms";

Reading Dated(const std::u16string& format) {
    Reading reading;
    reading.TimestampFormat = format;
    return reading;
}

// A series of times, in the lines 2, 3 and so on; a time that isn't later is a dropped row.
std::unique_ptr<TimeSeries> SeriesOf(const Reading& format, const std::vector<std::int64_t>& times) {
    auto series = std::make_unique<TimeSeries>(format, Letters);
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (series->Count != 0 && times[i] <= series->Last) {
            series->AddDropped();
        } else {
            series->Add(times[i], i + 2);
        }
    }
    return series;
}

check::IntervalStatistics StatisticsOf(const std::vector<std::int64_t>& intervals) {
    check::IntervalCounts counts;
    for (const std::int64_t interval : intervals) counts.Add(interval);
    return counts.Statistics();
}

// So many of one interval.
std::vector<std::int64_t> Mixed(std::initializer_list<std::pair<int, std::int64_t>> parts) {
    std::vector<std::int64_t> intervals;
    for (const auto& [count, interval] : parts)
        intervals.insert(intervals.end(), static_cast<std::size_t>(count), interval);
    return intervals;
}

TEST(IntervalStatistics, TellsSteadyRowsFromUnevenOnes) {
    struct Case {
        const char* Name;
        std::vector<std::int64_t> Intervals;
        std::int64_t Median, Low, High;
        bool IsSteady;
        std::int64_t GapAbove;
        std::uint64_t Gaps;
    };
    const Case cases[] = {
        {"none", {}, 0, 0, 0, false, 0, 0},
        {"one", {100}, 100, 100, 100, true, 150, 0},
        {"all alike", Mixed({{50, 100}}), 100, 100, 100, true, 150, 0},
        {"nine of ten within a tenth", Mixed({{8, 100}, {1, 110}, {1, 111}}), 100, 100, 111, true, 150, 0},
        {"eight of ten", Mixed({{8, 100}, {2, 111}}), 100, 100, 111, false, 1000, 0},
        {"on the limit is no gap", Mixed({{98, 100}, {1, 150}, {1, 151}}), 100, 100, 151, true, 150, 1},
        {"uneven rows may have long ones", Mixed({{1, 50}, {1, 100}, {1, 1000}, {1, 1001}}), 1000, 50, 1001,
         false, 10000, 0},
        {"ten times the median", Mixed({{3, 50}, {3, 100}, {3, 70}, {1, 701}}), 70, 50, 701, false, 700, 1},
        {"the ends are cut", Mixed({{1, 1}, {198, 100}, {1, 9999}}), 100, 100, 100, true, 150, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const check::IntervalStatistics all = StatisticsOf(c.Intervals);
        EXPECT_EQ(all.Count, c.Intervals.size());
        EXPECT_EQ(all.Median, c.Median);
        EXPECT_EQ(all.Low, c.Low);
        EXPECT_EQ(all.High, c.High);
        EXPECT_EQ(all.IsSteady, c.IsSteady);
        EXPECT_EQ(all.GapAbove, c.GapAbove);
        EXPECT_EQ(all.Gaps, c.Gaps);
        EXPECT_TRUE(all.IsExact);
    }
}

TEST(IntervalStatistics, StayTrueWhenTheyGiveUpExactness) {
    struct Case {
        int Different;
        bool IsExact;
    };
    for (const Case& c : {Case{4096, true}, Case{4097, false}, Case{50'000, false}}) {
        SCOPED_TRACE(c.Different);
        std::vector<std::int64_t> intervals;
        for (int i = 1; i <= c.Different; ++i) intervals.insert(intervals.end(), 2, i * std::int64_t{1001});
        const check::IntervalStatistics all = StatisticsOf(intervals);
        EXPECT_EQ(all.IsExact, c.IsExact);
        EXPECT_EQ(all.Count, intervals.size());
        EXPECT_EQ(all.Shortest, 1001);
        EXPECT_EQ(all.Longest, c.Different * std::int64_t{1001});
        const double middle = c.Different / 2.0 * 1001;
        EXPECT_NEAR(static_cast<double>(all.Median), middle, middle / 40);
    }
    check::IntervalCounts extreme;
    for (int i = 0; i < 5000; ++i) extreme.Add(INT64_MAX - i);
    extreme.Add(1);
    const check::IntervalStatistics all = extreme.Statistics();
    EXPECT_FALSE(all.IsExact);
    EXPECT_EQ(all.Shortest, 1);
    EXPECT_EQ(all.Longest, INT64_MAX);
    EXPECT_NEAR(static_cast<double>(all.Median), 0x1p63, 0x1p57);
    EXPECT_EQ(all.Gaps, 0u);
}

TEST(TimeSeries, KeepsTheLongestStepsTheLongestFirst) {
    std::vector<std::int64_t> times = {Second};
    for (const std::int64_t step : {1, 5, 2, 9, 5, 3, 4, 6, 7, 8, 1})
        times.push_back(times.back() + step * Second);
    const auto series = SeriesOf(Dated(u"[s]"), times);
    std::string steps;
    for (const check::TimeStep& step : series->LongestSteps)
        steps += std::to_string(step.Length() / Second) + "@" + std::to_string(step.Line) + " ";
    EXPECT_EQ(steps, "9@6 8@12 7@11 6@10 5@4 5@7 4@9 3@8 ");
    EXPECT_EQ(series->FirstLine, 2u);
    EXPECT_EQ(series->LastLine, 13u);
}

std::int64_t At(int month, int day, int hour = 0) {
    return CTimeStamp(2024, month, day, hour, 0, 0, 0).toTIME();
}

struct DateCase {
    const char* Name;
    std::vector<std::int64_t> Times;
    DayMonthState State;
    std::uint64_t Line;
};

TEST(DayMonthOrder, IsProvenOrNot) {
    const DateCase cases[] = {
        {"a day above 12", {At(1, 12), At(1, 13)}, DayMonthState::DayAbove12, 3},
        {"March 2 after February 3 would fall", {At(2, 3), At(3, 2)}, DayMonthState::WouldFall, 3},
        {"hours on end", {At(2, 3, 22), At(2, 3, 23), At(2, 4, 0)}, DayMonthState::RunsOn, 4},
        {"a night between", {At(2, 3, 10), At(2, 3, 11), At(2, 4, 10)}, DayMonthState::Ambiguous, 0},
        {"one date", {At(2, 3, 1), At(2, 3, 2)}, DayMonthState::OneDate, 0},
        {"no date", {}, DayMonthState::NotChecked, 0},
        {"equal numbers", {At(2, 2), At(3, 3)}, DayMonthState::Same, 0},
        {"rising either way", {At(2, 3), At(4, 5), At(6, 7)}, DayMonthState::Ambiguous, 0},
        {"months where days are meant", {At(2, 1), At(3, 1), At(4, 1)}, DayMonthState::OtherIsCloser, 0},
        {"the first proof counts", {At(2, 3), At(3, 2), At(3, 20)}, DayMonthState::WouldFall, 3},
    };
    for (const DateCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const auto series = SeriesOf(Dated(u"TT.MM.JJJJ"), c.Times);
        EXPECT_EQ(series->Dates.State(), c.State);
        EXPECT_EQ(series->Dates.Line(), c.Line);
    }
}

TEST(DayMonthOrder, IsInDoubtByTheFormat) {
    struct Case {
        std::u16string Format;
        bool IsInDoubt;
        std::u16string Exchanged;
    };
    const Case cases[] = {
        {u"TT.MM.JJJJ hh:mm", true, u"MM.TT.JJJJ hh:mm"},
        {u"M/T/JJ", true, u"T/M/JJ"},
        {u"TT.MM. hh:mm", true, u"MM.TT. hh:mm"},
        {u"JJJJ-MM-TT", false, u"JJJJ-TT-MM"},
        {u"MM.JJJJ", false, u""},
        {u"hh:mm:ss", false, u""},
        {u"", false, u""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Format));
        EXPECT_EQ(check::IsDayMonthInDoubt(c.Format, Letters), c.IsInDoubt);
        EXPECT_EQ(check::WithDayAndMonthExchanged(c.Format, Letters), c.Exchanged);
        EXPECT_EQ(check::WithDayAndMonthExchanged(c.Format, u""), u"");
    }
}

TEST(DayMonthOrder, IsAskedOnlyWhereDatesAreReadAsTheyAre) {
    const std::vector<std::int64_t> times = {At(2, 1), At(3, 1)};
    const auto stateOf = [&](auto change) {
        Reading format = Dated(u"TT.MM.JJJJ");
        change(format);
        return SeriesOf(format, times)->Dates.State();
    };
    EXPECT_EQ(stateOf([](Reading&) {}), DayMonthState::OtherIsCloser);
    EXPECT_EQ(stateOf([](Reading& f) { f.IsAdjusted = true; }), DayMonthState::NotChecked);
    EXPECT_EQ(stateOf([](Reading& f) { f.DateSetting = DateFixed; }), DayMonthState::NotChecked);
    EXPECT_EQ(stateOf([](Reading& f) { f.TimeSetting = TimeInterval; }), DayMonthState::NotChecked);
    EXPECT_EQ(stateOf([](Reading& f) { f.TimestampFormat = u"JJJJ-MM-TT"; }), DayMonthState::NotChecked);
}

TEST(TimeSeries, TellsMidnightFromAClockThatWasSetBack) {
    Reading format = Dated(u"hh:mm:ss");
    format.DateSetting = DateFixed;
    const std::int64_t day = At(5, 1);
    const std::int64_t half = Hour / 2;
    // Half hours over midnight, a night of twelve hours, then 11:00 after 12:00: the next day's.
    const std::vector<std::int64_t> times = {day + 23 * Hour,        day + 23 * Hour + half, day + 24 * Hour,
                                             day + 24 * Hour + half, day + 35 * Hour,        day + 36 * Hour,
                                             day + 59 * Hour};
    const auto series = SeriesOf(format, times);
    EXPECT_EQ(series->RollOvers, 2u);
    ASSERT_EQ(series->DoubtfulRollOvers.Count, 1u);
    EXPECT_EQ(series->DoubtfulRollOvers.Last.Line, 8u);
    // Hours that are counted on, and dates, have no roll-over.
    format.TimestampFormat = u"[h]:mm";
    EXPECT_EQ(SeriesOf(format, times)->RollOvers, 0u);
    EXPECT_EQ(SeriesOf(Dated(u"TT.MM.JJJJ"), times)->RollOvers, 0u);
}

// Times from 0 on, each in so many rows.
std::vector<std::int64_t> Repeated(const std::vector<int>& rows, std::int64_t step) {
    std::vector<std::int64_t> times;
    for (std::size_t i = 0; i < rows.size(); ++i)
        times.insert(times.end(), static_cast<std::size_t>(rows[i]), static_cast<std::int64_t>(i + 1) * step);
    return times;
}

TEST(TimeSeries, CountsTheRowsThatShareATime) {
    struct Case {
        const char* Name;
        std::u16string Format;
        std::vector<std::int64_t> Times;
        std::uint64_t RowsEach;
        bool IsEven;
        std::int64_t Finest;
    };
    const Case cases[] = {
        {"each its own", u"ss", Repeated({1, 1, 1, 1, 1, 1}, Second), 0, false, Second},
        {"ten each, and a part at both ends", u"ss", Repeated({3, 10, 10, 10, 10, 2}, Second), 10, true,
         Second},
        {"a tenth more or less is even", u"ss", Repeated({9, 10, 11, 9, 10, 1}, Second), 10, true, Second},
        {"of few rows none may be missing", u"ss", Repeated({2, 2, 3, 2, 2, 2}, Second), 2, false, Second},
        {"too few to tell", u"ss", Repeated({5, 5, 5, 5}, Second), 0, false, Second},
        {"minutes", u"hh:mm", Repeated({2, 2, 2, 2, 2}, 60 * Second), 2, true, 60 * Second},
        {"days", u"TT.MM.JJJJ", Repeated({2, 2, 2, 2, 2}, Day), 2, true, Day},
        {"a fraction that is used", u"ss,000", Repeated({2, 2, 2, 2, 2}, Second / 100), 2, true,
         Second / 100},
        {"nanoseconds", u"[ns]", Repeated({2, 2, 2, 2, 2}, 1), 2, true, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const check::SharedTimes shared = SeriesOf(Dated(c.Format), c.Times)->GetSharedTimes();
        EXPECT_EQ(shared.RowsEach, c.RowsEach);
        EXPECT_EQ(shared.IsEven, c.IsEven);
        EXPECT_EQ(shared.Finest, c.Finest);
    }
}

}  // namespace
