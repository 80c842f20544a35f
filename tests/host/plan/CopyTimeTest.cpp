// The times of a copy.
#include "host/plan/CopyTime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <string>

#include "host/plan/CopyKit.h"

namespace {

using namespace copies;

std::string WithBlanks(std::string text) {
    std::replace(text.begin(), text.end(), '_', ' ');
    return text;
}

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
        const char* Cells;    // of the rows, with blanks for underscores
        const char* Written;  // the head of the column in the copy for people, and the times
        std::int64_t Shift = 0;
    } cases[] = {
        {"12 hours", Text(), "31.1.24_12:05_PM", "Time 2024-01-31_12:05:00.000000000"},
        {"24:00 is the next day", Text(), "31.12.2023_24:00", "Time 2024-01-01_00:00:00.000000000"},
        {"before 1970", Text(), "31.12.1969_23:59:59,5", "Time 1969-12-31_23:59:59.500000000"},
        {"days of a spreadsheet", days, "45322.5", "Time 2024-01-31_12:00:00.000000000"},
        {"numbers since 1970", epoch, "1706702400123 1706702400124",
         "Time_[s_since_1970] 1706702400.123000000 1706702400.124000000"},
        {"moments before 1970", epoch, "-1500 0", "Time_[s_since_1970] -1.500000000 0.000000000"},
        {"a zone that changes", zoned, "27.10.2024_02:30:00+02:00 27.10.2024_02:00:00+01:00",
         "Time_[s_since_1970] 1729989000.000000000 1729990800.000000000"},
        {"a clock over midnight", clock, "23:59:59 00:00:01", "Time_[s] 86399.000000000 86401.000000000"},
        {"microseconds", Number(1000), "1.5 2000000", "Time_[s] 0.000001500 2.000000000"},
        {"before a trigger", Number(OneSecond), "-0.5 0 0.25", "Time_[s] 0.000000000 0.500000000 0.750000000",
         OneSecond / 2},
        {"backwards before a trigger", Number(OneSecond), "1 -2", "Time_[s] 0.000000000 3.000000000",
         2 * OneSecond},
    };
    CopyOptions options;
    options.Layout = CopyLayout::ForPeople;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        std::string text = "t;v\n";
        std::istringstream cells(c.Cells);
        for (std::string cell; cells >> cell;) text += WithBlanks(cell) + ";1\n";
        const Copied copied = CopyOf(text, PlanOf("t@ v#i", c.Recipe), options);
        std::istringstream rows(copied.Text);
        std::string written;
        for (std::string row; std::getline(rows, row);)
            written += (written.empty() ? "" : "\n") + row.substr(0, row.find('|'));
        std::string wanted = c.Written;
        std::replace(wanted.begin(), wanted.end(), ' ', '\n');
        EXPECT_EQ(written, WithBlanks(wanted));
        EXPECT_EQ(copied.Result.Shift, c.Shift);
    }
}

// Whatever time was written before.
TEST(CopyTime, IsTheSameAfterAnyOther) {
    constexpr std::int64_t Day = 86'400 * OneSecond;
    constexpr std::int64_t Greatest = std::numeric_limits<std::int64_t>::max();
    const std::vector<std::int64_t> times = {0,
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
