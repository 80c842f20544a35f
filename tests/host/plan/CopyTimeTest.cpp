// The times of a copy.
#include "host/plan/CopyTime.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "host/plan/CopyKit.h"

namespace {

using namespace copies;

// Times come out as texts of three kinds.
TEST(CopyTime, IsATextOfThreeKinds) {
    TimeRecipe clock;
    clock.RollsOver = true;
    TimeRecipe epoch = Number(OneSecond / 1000);
    epoch.IsAbsolute = epoch.IsUtc = true;
    TimeRecipe zoned = Text();
    zoned.AppliesZone = true;
    TimeRecipe days = Number(86'400 * OneSecond);
    days.IsAbsolute = true;
    days.Offset = 25'569;
    const struct {
        const char* About;
        TimeRecipe Recipe;
        std::vector<const char*> Cells;
        CopyTimes Times;
        const char* Head;  // of the time in the copy for people
        std::vector<const char*> Written;
        std::int64_t Shift = 0;
    } cases[] = {
        {"12 hours",
         Text(),
         {"31.1.24 12:05 PM"},
         CopyTimes::Local,
         "Time",
         {"2024-01-31 12:05:00.000000000"}},
        {"24:00 is the next day",
         Text(),
         {"31.12.2023 24:00"},
         CopyTimes::Local,
         "Time",
         {"2024-01-01 00:00:00.000000000"}},
        {"before 1970",
         Text(),
         {"31.12.1969 23:59:59,5"},
         CopyTimes::Local,
         "Time",
         {"1969-12-31 23:59:59.500000000"}},
        {"days of a spreadsheet",
         days,
         {"45322.5"},
         CopyTimes::Local,
         "Time",
         {"2024-01-31 12:00:00.000000000"}},
        {"numbers since 1970",
         epoch,
         {"1706702400123", "1706702400124"},
         CopyTimes::Moments,
         "Time [s since 1970]",
         {"1706702400.123000000", "1706702400.124000000"}},
        {"moments before 1970",
         epoch,
         {"-1500", "0"},
         CopyTimes::Moments,
         "Time [s since 1970]",
         {"-1.500000000", "0.000000000"}},
        {"a zone that changes",
         zoned,
         {"27.10.2024 02:30:00+02:00", "27.10.2024 02:00:00+01:00"},
         CopyTimes::Moments,
         "Time [s since 1970]",
         {"1729989000.000000000", "1729990800.000000000"}},
        {"a clock over midnight",
         clock,
         {"23:59:59", "00:00:01"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"86399.000000000", "86401.000000000"}},
        {"microseconds",
         Number(1000),
         {"1.5", "2000000"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"0.000001500", "2.000000000"}},
        {"before a trigger",
         Number(OneSecond),
         {"-0.5", "0", "0.25"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"0.000000000", "0.500000000", "0.750000000"},
         OneSecond / 2},
        {"backwards before a trigger",
         Number(OneSecond),
         {"1", "-2"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"0.000000000", "3.000000000"},
         2 * OneSecond},
    };
    CopyOptions options;
    options.Layout = CopyLayout::ForPeople;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        std::string text = "t;v\n";
        for (const char* const cell : c.Cells) text += cell + std::string(";1\n");
        const Copied copied = CopyOf(text, PlanOf("t@ v#i", c.Recipe), options);
        std::string wanted = c.Head + std::string("|v\n");
        for (const char* const time : c.Written) wanted += time + std::string("|1\n");
        EXPECT_EQ(copied.Text, wanted);
        EXPECT_EQ(copied.Result.Times, c.Times);
        EXPECT_EQ(copied.Result.Shift, c.Shift);
    }
}

// Whatever time was written before.
TEST(CopyTime, IsTheSameAfterAnyOther) {
    constexpr std::int64_t Day = 86'400 * OneSecond;
    constexpr std::int64_t Greatest = std::numeric_limits<std::int64_t>::max();
    const std::int64_t times[] = {0,
                                  1,
                                  OneSecond - 1,
                                  OneSecond,
                                  OneSecond + 123'456'789,
                                  2 * OneSecond - 1,
                                  Day - 1,
                                  Day,
                                  Day + OneSecond / 2,
                                  -1,
                                  -OneSecond,
                                  -OneSecond / 2,
                                  -OneSecond - 1,
                                  1'704'157'445'123'000'000,
                                  1'704'157'445'999'999'999,
                                  Greatest,
                                  Greatest - 1,
                                  -Greatest,
                                  -Greatest - 1};
    for (const CopyTimes kind : {CopyTimes::Local, CopyTimes::Moments, CopyTimes::Elapsed}) {
        for (const std::int64_t before : times) {
            for (const std::int64_t time : times) {
                SCOPED_TRACE(std::to_string(time) + " after " + std::to_string(before));
                TimeWriter writer(kind);
                std::string text;
                writer.Append(before, text);
                text.clear();
                writer.Append(time, text);
                std::string alone;
                TimeWriter(kind).Append(time, alone);
                EXPECT_EQ(text, alone);
            }
        }
    }
}

}  // namespace
