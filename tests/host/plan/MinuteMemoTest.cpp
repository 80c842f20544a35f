// Times by way of the memo are those of the recipe.
#include "host/plan/MinuteMemo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/plan/TimeRecipe.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

constexpr TimeStyle InOrder{DateOrder::DayFirst, false, false};
constexpr TimeStyle InMinutes{DateOrder::DayFirst, true, false};
constexpr TimeStyle InMilliseconds{DateOrder::DayFirst, false, true};

std::string Shown(std::optional<std::int64_t> time) {
    return time ? std::to_string(*time) : "none";
}

TEST(MinuteMemo, GivesTheTimesOfTheRecipe) {
    const struct {
        const char* About;
        TimeStyle Style;
        bool IsAbsolute, AppliesZone;
        std::vector<const char*> Texts;
    } cases[] = {
        {"seconds",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:00", "31.01.2024 12:00:59", "31.01.2024 12:01:00", "1.02.2024 12:01:00"}},
        {"beyond a minute",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:59", "31.01.2024 12:00:60", "31.01.2024 12:00:61", "31.01.2024 12:00:99"}},
        {"fractions",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:00.5", "31.01.2024 12:00:00.7", "31.01.2024 12:00:00.75",
          "31.01.2024 12:00:01,75", "31.01.2024 12:00:02.123456789", "31.01.2024 12:00:02.1234567891",
          "31.01.2024 12:00:02."}},
        {"no second digit",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:01", "31.01.2024 12:00:1", "31.01.2024 12:00"}},
        {"halves of the day",
         InOrder,
         true,
         false,
         {"31.01.2024 9:05:07 AM", "31.01.2024 9:05:08 PM", "31.01.2024 9:05:09 PM"}},
        {"zones",
         InOrder,
         true,
         true,
         {"2024-01-31T12:00:00Z", "2024-01-31T12:00:01Z", "2024-01-31T12:00:02+01:00",
          "2024-01-31T12:00:03+01:00", "2024-01-31T12:00:04+02:00", "2024-01-31T12:00:05"}},
        {"a date with colons",
         InOrder,
         true,
         false,
         {"2024:01:31", "2024:01:30", "2024:01:31 10:20:30", "2024:01:31 10:20:31"}},
        {"a time first",
         InOrder,
         true,
         false,
         {"12:00:00 31.01.2024", "12:00:01 31.01.2024", "12:00:02 01.02.2024"}},
        {"clocks", InOrder, false, false, {"9:59:58", "9:59:59", "10:59:59", "110:59:59", "110:59:58"}},
        {"counted milliseconds", InMilliseconds, false, false, {"15:42:07.7", "15:42:07.12", "15:42:08.99"}},
        {"minutes first", InMinutes, false, false, {"12:30:05", "12:30:06", "12:30.5"}},
        {"no times",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:00", "", "x", "31.01.2024 12:00:0x", "31.01.2024 12:00:0"}},
        {"a wrong date beside right seconds",
         InOrder,
         true,
         false,
         {"31.01.2024 12:00:00", "32.01.2024 12:00:00", "31.01.2024 25:00:00", "31.01.2024 12:60:00"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        TimeRecipe recipe;
        recipe.Columns = {0};
        recipe.Style = c.Style;
        recipe.IsAbsolute = c.IsAbsolute;
        recipe.AppliesZone = c.AppliesZone;
        // From each text to each other one.
        MinuteMemo memo;
        for (const char* const from : c.Texts) {
            for (const char* const to : c.Texts) {
                for (const char* const text : {from, to}) {
                    const std::u16string cell = Utf8ToUtf16(text);
                    EXPECT_EQ(Shown(memo.TimeOf(recipe, {cell})), Shown(recipe.TimeOf({cell})))
                        << text << " after " << from;
                }
            }
        }
    }
}

TEST(MinuteMemo, LooksAtTheDateInAColumnOfItsOwn) {
    TimeRecipe recipe;
    recipe.Columns = {2, 0};
    recipe.IsAbsolute = true;
    MinuteMemo memo;
    const char* const rows[][2] = {{"12:00:00", "31.01.2024"},
                                   {"12:00:01", "31.01.2024"},
                                   {"12:00:02", "01.02.2024"},
                                   {"12:00:03", ""},
                                   {"12:00:04", "01.02.2024"}};
    for (const auto& [clock, date] : rows) {
        SCOPED_TRACE(clock);
        const std::u16string first = Utf8ToUtf16(clock);
        const std::u16string third = Utf8ToUtf16(date);
        const std::vector<std::u16string_view> cells = {first, u"7", third};
        EXPECT_EQ(Shown(memo.TimeOf(recipe, cells)), Shown(recipe.TimeOf(cells)));
    }
    EXPECT_EQ(memo.TimeOf(recipe, {u"12:00:00"}), std::nullopt);
}

}  // namespace
