// Time stamps: calendar and nanoseconds, in whatever zone the tests run.
#include "contract/TimeStamp.h"

#include <gtest/gtest.h>

#include "kit/LocalMoment.h"
#include "platform/framework/Exceptions.h"

constexpr std::int64_t Second = 1'000'000'000, Day = 86'400 * Second;

TEST(TimeStamp, IsLocalTimeOfAnExistingDate) {
    const auto at = [](int month, int day, int hour, int minute, int second, int year = 2021) {
        try {
            return CTimeStamp(year, month, day, hour, minute, second, 123456789).toTIME() - 123456789;
        } catch (COleException* error) {
            error->Delete();
            return INT64_MIN;
        }
    };
    EXPECT_EQ(at(2, 29, 12, 34, 56, 2020), LocalTime64(2020, 2, 29, 12, 34, 56));
    EXPECT_EQ(at(12, 31, 23, 59, 59, 1969), LocalTime64(1969, 12, 31, 23, 59, 59));
    EXPECT_EQ(at(3, 1, 6, 0, 0, 1900), LocalTime64(1900, 3, 1, 6));
    const std::int64_t missing[] = {at(2, 29, 0, 0, 0), at(2, 29, 0, 0, 0, 2100), at(4, 31, 0, 0, 0),
                                    at(1, 0, 0, 0, 0),  at(0, 1, 0, 0, 0),        at(13, 1, 0, 0, 0),
                                    at(1, 1, 24, 0, 0), at(1, 1, 0, 60, 0),       at(1, 1, 0, 0, 60)};
    for (const std::int64_t time : missing) EXPECT_EQ(time, INT64_MIN);
}

TEST(TimeStamp, FromStringTakesTheWholeTextOnly) {
    CTimeStamp stamp(77 * Second);
    for (const char16_t* text : {u"2021-02-29", u"2020-2-29", u"2020-02-29 ", u" 020-02-29", u"2020-02-3x",
                                 u"2020/02/29", u"-020-02-29", u"", u"２020-02-29"}) {
        EXPECT_FALSE(stamp.fromString(text, u"YYYY-MM-DD", 0));
    }
    EXPECT_EQ(stamp.toTIME(), 77 * Second);
    EXPECT_TRUE(stamp.fromString(u"29.2020.02 23:59:58", u"DD.YYYY.MM HH:mm:ss", 0));
    EXPECT_EQ(stamp.GetCTime().Seconds, LocalSeconds(2020, 2, 29, 23, 59, 58));
}

TEST(TimeStamp, DateAndTimeOfDayAreTheWhole) {
    for (int day = -2000; day < 20'000; day += 9) {
        const std::int64_t midnight = LocalTime64(1970, 1, 1 + day);
        if (LocalTime64(1970, 1, 2 + day) - midnight != Day) continue;  // the clocks change
        for (const std::int64_t into : {std::int64_t{0}, std::int64_t{1}, 5 * 3600 * Second + 7, Day - 1}) {
            ASSERT_EQ(CTimeStamp(midnight + into).DateToTIME(), midnight) << "day " << day << " and " << into;
            ASSERT_EQ(CTimeStamp(midnight + into).DaytimeToTIME(true), into) << "day " << day;
        }
    }
    EXPECT_EQ(CTimeStamp(std::int64_t{-1}).GetCTime().Seconds, -1) << "rounded toward the past";
    EXPECT_EQ(CTimeStamp(CTime{INT64_MAX}).toTIME(), -Second) << "wraps";
}

TEST(TimeStamp, Text) {
    EXPECT_EQ(CTimeStamp(1953, 2, 9, 12, 4, 6, 10'200'000).ToText(), u"1953-02-09 12:04:06.0102");
    EXPECT_EQ(CTimeStampSpan(CTimeStamp(), CTimeStamp(-366'100 * Second)).ToText(), u"-101:41:40");
}
