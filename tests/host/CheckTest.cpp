// What a check reckons: intervals, dates, roll-overs, and the values in a message.
#include <gtest/gtest.h>

#include "contract/TimeStamp.h"
#include "host/check/IntervalCounts.h"
#include "host/check/MessageTemplate.h"
#include "host/check/TimeSeries.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Hour = 3600 * Second;

TEST(IntervalCounts, StaysTrueWhenItGivesUpExactness) {
    for (const int different : {100, 50'000}) {
        SCOPED_TRACE(different);
        kelvarin::check::IntervalCounts counts;
        for (int i = 1; i <= different; ++i) {
            counts.Add(i * 1001);
            counts.Add(i * 1001);
        }
        EXPECT_EQ(counts.IsExact(), different == 100);
        EXPECT_EQ(counts.Count(), 2u * static_cast<unsigned>(different));
        EXPECT_EQ(counts.Shortest(), 1001);
        EXPECT_EQ(counts.Longest(), different * 1001);
        const double middle = different / 2.0 * 1001;
        EXPECT_NEAR(static_cast<double>(counts.Quantile(0.5)), middle, middle / 40);
        const auto above = static_cast<double>(counts.CountBetween(middle, 1e18));
        EXPECT_NEAR(above, different, different / 25.0);
    }
    kelvarin::check::IntervalCounts extreme;
    for (int i = 0; i < 5000; ++i) extreme.Add(INT64_MAX - i);
    extreme.Add(1);
    EXPECT_FALSE(extreme.IsExact());
    EXPECT_EQ(extreme.CountBetween(0, 2), 1u);
}

struct TemplateCase {
    const char16_t* Template;
    const char16_t* Text;
    std::vector<std::u16string> Values;
};

TEST(MessageTemplate, ReadsWhatWasFilledIn) {
    const TemplateCase cases[] = {
        {u"Value '%s' of '%s' in line %i.", u"Value 'x' of 'n' in line 7.", {u"x", u"n", u"7"}},
        {u"Value '%s' of '%s' in line %i.", u"Value 'a' of 'b' of 'n' in line 7.", {u"a' of 'b", u"n", u"7"}},
        {u"Value '%s' of '%s' in line %i.", u"Value '' of '' in line .", {u"", u"", u""}},
        {u"Value '%s' of '%s' in line %i.", u"Another text.", {}},
        {u"Value '%s' of '%s' in line %i.", u"Value '.", {}},
    };
    for (const TemplateCase& c : cases)
        EXPECT_EQ(kelvarin::check::MessageTemplate(c.Template).Read(c.Text), c.Values);
}

std::int64_t At(int month, int day, int hour = 0) {
    return CTimeStamp(2024, month, day, hour, 0, 0, 0).toTIME();
}

kelvarin::check::TimeSeries SeriesOf(const kelvarin::check::TimeSource& reading,
                                     const std::vector<std::int64_t>& times) {
    kelvarin::check::TimeSeries series(reading);
    for (std::size_t i = 0; i < times.size(); ++i) series.Add(times[i], i + 2);
    return series;
}

struct DateCase {
    const char* Name;
    std::vector<std::int64_t> Times;
    kelvarin::check::DateOrderState State;
    std::uint64_t Line;
};

TEST(DateOrder, IsProvenOrNot) {
    const DateCase cases[] = {
        {"a day above 12", {At(1, 12), At(1, 13)}, kelvarin::check::DateOrderState::DayAbove12, 3},
        {"March 2 behind February 3 would fall",
         {At(2, 3), At(3, 2)},
         kelvarin::check::DateOrderState::WouldFall,
         3},
        {"hours on end",
         {At(2, 3, 22), At(2, 3, 23), At(2, 4, 0)},
         kelvarin::check::DateOrderState::RunsOn,
         4},
        {"one date", {At(2, 3, 1), At(2, 3, 2)}, kelvarin::check::DateOrderState::OneDate, 0},
        {"equal numbers", {At(2, 2), At(3, 3)}, kelvarin::check::DateOrderState::Same, 0},
        {"rising either way", {At(2, 3), At(4, 5), At(6, 7)}, kelvarin::check::DateOrderState::Ambiguous, 0},
        {"months where days are meant",
         {At(2, 1), At(3, 1), At(4, 1)},
         kelvarin::check::DateOrderState::OtherIsEven,
         0},
    };
    kelvarin::check::TimeSource reading;
    reading.Letters = u"JMThms";
    reading.Format = u"TT.MM.JJJJ";
    for (const DateCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const kelvarin::check::TimeSeries series = SeriesOf(reading, c.Times);
        EXPECT_EQ(series.Dates().State(), c.State);
        EXPECT_EQ(series.Dates().Line(), c.Line);
    }
    reading.Format = u"JJJJ-MM-TT";
    EXPECT_EQ(SeriesOf(reading, cases[6].Times).Dates().State(), kelvarin::check::DateOrderState::Unasked);
}

TEST(TimeSeries, TellsMidnightFromAClockThatWasSetBack) {
    kelvarin::check::TimeSource reading;
    reading.DateFrom = kelvarin::check::TimeSource::Date::Fixed;
    reading.Format = u"hh:mm:ss";
    const std::int64_t day = At(5, 1);
    const std::int64_t half = Hour / 2;
    // Half hours over midnight, a night of twelve hours, then 11:00 behind 12:00: the next day's.
    const kelvarin::check::TimeSeries series =
        SeriesOf(reading, {day + 23 * Hour, day + 23 * Hour + half, day + 24 * Hour, day + 24 * Hour + half,
                           day + 35 * Hour, day + 36 * Hour, day + 59 * Hour});
    EXPECT_EQ(series.RollOvers(), 2u);
    ASSERT_EQ(series.DoubtfulRollOvers().Count(), 1u);
    EXPECT_EQ(series.DoubtfulRollOvers().Last().Line, 8u);
}

}  // namespace
