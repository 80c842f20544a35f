// Time stamps: calendar and nanoseconds, in whatever zone the tests run.
#include "host/TimeStamp.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/LocalMoment.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Locale.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Day = 86'400 * Second;
constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();

// True if a stamp can be made of the seven numbers.
bool Exists(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    try {
        CTimeStamp(year, month, day, hour, minute, second, 0);
        return true;
    } catch (COleException* error) {
        error->Delete();
        return false;
    }
}

}  // namespace

TEST(TimeStamp, IsLocalTime) {
    const struct {
        int Year, Month, Day, Hour, Minute, Second, Nanosecond;
    } cases[] = {
        {2020, 2, 29, 12, 34, 56, 123456789},
        {2020, 2, 29, 0, 0, 0, 0},
        {2020, 2, 29, 0, 0, 0, 1},
        {1970, 1, 1, 0, 0, 0, 0},
        {1969, 12, 31, 23, 59, 59, 999999999},
        {1900, 3, 1, 6, 0, 0, 0},
        {2020, 7, 1, 0, 0, 0, 0},
        {2020, 7, 2, 0, 0, 0, 0},
        {2021, 7, 1, 0, 0, 0, 0},
        {2020, 7, 1, 0, 0, 0, 0},  // days like those before
        {2115, 12, 31, 23, 59, 59, 0},
    };
    for (const auto& c : cases) {
        const std::int64_t expected =
            LocalTime64(c.Year, c.Month, c.Day, c.Hour, c.Minute, c.Second) + c.Nanosecond;
        const CTimeStamp stamp(c.Year, c.Month, c.Day, c.Hour, c.Minute, c.Second, c.Nanosecond);
        EXPECT_EQ(stamp.toTIME(), expected) << c.Year << '-' << c.Month << '-' << c.Day << ' ' << c.Hour;
    }
}

TEST(TimeStamp, RefusesWhatTheCalendarLacks) {
    EXPECT_TRUE(Exists(2000, 2, 29));
    EXPECT_TRUE(Exists(2020, 2, 29));
    EXPECT_TRUE(Exists(2021, 12, 31, 23, 59, 59));
    const int dates[][3] = {{2021, 2, 31}, {2021, 2, 29}, {2100, 2, 29}, {1900, 2, 29},  {2000, 2, 30},
                            {2021, 4, 31}, {2021, 6, 31}, {2021, 9, 31}, {2021, 11, 31}, {2021, 1, 32},
                            {2021, 1, 0},  {2021, 1, -1}, {2021, 0, 1},  {2021, 13, 1},  {2021, -1, 1}};
    for (const auto& date : dates) {
        EXPECT_FALSE(Exists(date[0], date[1], date[2])) << date[0] << '-' << date[1] << '-' << date[2];
    }
    const int times[][3] = {{24, 0, 0}, {-1, 0, 0}, {0, 60, 0}, {0, -1, 0}, {0, 0, 60}, {0, 0, -1}};
    for (const auto& time : times) {
        EXPECT_FALSE(Exists(2021, 1, 1, time[0], time[1], time[2])) << time[0] << ':' << time[1];
    }
}

TEST(TimeStamp, FromStringTakesTheWholeTextOnly) {
    constexpr const char16_t *Date = u"YYYY-MM-DD", *Time = u"HH:mm:ss";
    const std::int64_t leapDay = LocalSeconds(2020, 2, 29);
    const std::int64_t evening = LocalSeconds(1970, 1, 1, 23, 59, 59);
    constexpr std::int64_t Refused = 77;  // what the stamp held before
    const struct {
        const char16_t *Text, *Format;
        std::int64_t Seconds;
    } cases[] = {{u"2020-02-29", Date, leapDay},  {u"2021-02-29", Date, Refused},
                 {u"2020-2-29", Date, Refused},   {u"2020-02-29 ", Date, Refused},
                 {u" 020-02-29", Date, Refused},  {u"2020-02-3x", Date, Refused},
                 {u"2020/02/29", Date, Refused},  {u"2020-00-29", Date, Refused},
                 {u"-020-02-29", Date, Refused},  {u"", Date, Refused},
                 {u"２020-02-29", Date, Refused}, {u"23:59:59", Time, evening},
                 {u"24:00:00", Time, Refused},    {u"23:60:00", Time, Refused},
                 {u"23:59:60", Time, Refused},    {u"29.02.20200", u"DD.MM.YYYYm", leapDay}};
    for (const auto& c : cases) {
        CTimeStamp stamp(Refused * Second);
        EXPECT_EQ(stamp.fromString(c.Text, c.Format, 0), c.Seconds != Refused);
        EXPECT_EQ(stamp.GetCTime().Seconds, c.Seconds) << testing::PrintToString(std::u16string(c.Text));
    }
    EXPECT_EQ(CTimeStamp(std::int64_t{-1}).GetCTime().Seconds, -1) << "rounded toward the past";
}

TEST(TimeStamp, DateAndTimeOfDayAreTheWhole) {
    for (int day = -2000; day < 20'000; day += 9) {
        const std::int64_t midnight = LocalTime64(1970, 1, 1 + day);
        LocalTime local{};
        ASSERT_TRUE(ToLocalTime(midnight / Second, local));
        const bool skipsMidnight = local.Hour != 0 || local.Minute != 0 || local.Second != 0;
        // Days on which the clocks change are what the runtime makes of them.
        if (skipsMidnight || LocalTime64(1970, 1, 2 + day) - midnight != Day) continue;
        for (const std::int64_t into : {std::int64_t{0}, std::int64_t{1}, 5 * 3600 * Second + 7, Day - 1}) {
            const CTimeStamp stamp(midnight + into);
            EXPECT_EQ(stamp.DateToTIME(), midnight) << "day " << day << " and " << into << " ns";
            EXPECT_EQ(stamp.DaytimeToTIME(true), into) << "day " << day;
            EXPECT_EQ(stamp.DaytimeToTIME(false), into) << "day " << day;
        }
    }
}

TEST(TimeStamp, RoundsTowardThePast) {
    const std::int64_t zero = CTimeStamp(std::int64_t{0}).DaytimeToTIME(true);
    for (const std::int64_t time :
         {-1 * Second - 1, -1 * Second, -1 * Second + 1, std::int64_t{-1}, std::int64_t{1}}) {
        EXPECT_EQ(CTimeStamp(time).DaytimeToTIME(true), (zero + time + Day) % Day) << time;
        EXPECT_EQ(CTimeStamp(time).DateToTIME() + CTimeStamp(time).DaytimeToTIME(true), time);
    }
    for (const std::int64_t time : {Lowest, Lowest + 1, Highest}) {
        const std::int64_t daytime = CTimeStamp(time).DaytimeToTIME(false);
        EXPECT_GE(daytime, 0) << time;
        EXPECT_LT(daytime, Day) << time;
    }
    EXPECT_EQ(CTimeStamp(CTime{-2}).toTIME(), -2 * Second);
    EXPECT_EQ(CTimeStamp(CTime{Highest}).toTIME(), -Second) << "seconds beyond 64 bits wrap";
}

TEST(TimeStamp, Text) {
    const struct {
        int Year, Nanosecond;
        const char16_t* Text;
    } cases[] = {
        {2020, 0, u"2020-02-09 12:04:06"},
        {2020, 1, u"2020-02-09 12:04:06.000000001"},
        {2020, 500'000'000, u"2020-02-09 12:04:06.5"},
        {2020, 10'200'000, u"2020-02-09 12:04:06.0102"},
        {1953, 999'999'999, u"1953-02-09 12:04:06.999999999"},
    };
    for (const auto& c : cases) EXPECT_EQ(CTimeStamp(c.Year, 2, 9, 12, 4, 6, c.Nanosecond).ToText(), c.Text);
}

TEST(TimeStampSpan, Text) {
    const struct {
        std::int64_t From, To;
        const char16_t* Text;
    } cases[] = {
        {0, 0, u"00:00:00"},
        {5, 6, u"00:00:00.000000001"},
        {6, 5, u"-00:00:00.000000001"},
        {-Second / 2, 0, u"00:00:00.5"},
        {0, 3661 * Second + 20'000'000, u"01:01:01.02"},
        {0, 3'600'000 * Second - 1, u"999:59:59.999999999"},
        {0, -360'000 * Second, u"-100:00:00"},
        {0, Highest, u"2562047:47:16.854775807"},
        {0, Lowest, u"-2562047:47:16.854775808"},
        {Highest, Lowest, u"00:00:00.000000001"},  // wraps
    };
    for (const auto& c : cases) {
        const CTimeStampSpan span{CTimeStamp(c.From), CTimeStamp(c.To)};
        EXPECT_EQ(span.ToText(), c.Text) << c.From << " to " << c.To;
    }
}
