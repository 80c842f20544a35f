// Times by way of the memo are those of the recipe.
#include "host/plan/MinuteMemo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/plan/TimeRecipe.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

std::string Shown(std::optional<std::int64_t> time) {
    return time ? std::to_string(*time) : "none";
}

TEST(MinuteMemo, GivesTheTimesOfTheRecipe) {
    const std::u16string texts[] = {
        u"31.01.2024 12:00:00", u"31.01.2024 12:00:59", u"31.01.2024 12:01:00", u"1.02.2024 12:01:00",
        // Beyond a minute, and wrong beside right seconds.
        u"31.01.2024 12:00:60", u"31.01.2024 12:00:99", u"32.01.2024 12:00:00", u"31.01.2024 25:00:00",
        u"31.01.2024 12:60:00",
        // The last hour of a day.
        u"31.01.2024 24:00:00", u"31.01.2024 24:00:01",
        // Fractions.
        u"31.01.2024 12:00:00.5", u"31.01.2024 12:00:00.7", u"31.01.2024 12:00:00.75",
        u"31.01.2024 12:00:01,75", u"31.01.2024 12:00:02.123456789", u"31.01.2024 12:00:02.1234567891",
        u"31.01.2024 12:00:02.",
        // Fewer digits, and no times.
        u"31.01.2024 12:00:1", u"31.01.2024 12:00", u"", u"x", u"31.01.2024 12:00:0x",
        // Halves of the day, zones, dates with colons, a time first.
        u"31.01.2024 9:05:07 AM", u"31.01.2024 9:05:08 PM", u"31.01.2024 9:05:09 PM", u"2024-01-31T12:00:00Z",
        u"2024-01-31T12:00:01Z", u"2024-01-31T12:00:02+01:00", u"2024-01-31T12:00:03+01:00",
        u"2024-01-31T12:00:04+02:00", u"2024-01-31T12:00:05", u"2024:01:31", u"2024:01:30",
        u"2024:01:31 10:20:30", u"2024:01:31 10:20:31", u"12:00:00 31.01.2024", u"12:00:01 31.01.2024",
        // Clocks.
        u"9:59:58", u"9:59:59", u"10:59:59", u"110:59:59", u"110:59:58", u"15:42:07.7", u"15:42:07.12",
        u"15:42:08.99", u"12:30:05", u"12:30:06", u"12:30.5"};
    const struct {
        TimeStyle Style;
        bool IsAbsolute, AppliesZone;
    } cases[] = {{{DateOrder::DayFirst, false, false}, true, false},
                 {{DateOrder::DayFirst, false, false}, true, true},
                 {{DateOrder::DayFirst, false, false}, false, false},
                 {{DateOrder::DayFirst, true, false}, false, false},
                 {{DateOrder::DayFirst, false, true}, false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        TimeRecipe recipe;
        recipe.Columns = {0};
        recipe.Style = c.Style;
        recipe.IsAbsolute = c.IsAbsolute;
        recipe.AppliesZone = c.AppliesZone;
        MinuteMemo memo;
        for (const std::u16string& from : texts) {
            for (const std::u16string& to : texts) {
                for (const std::u16string& text : {from, to}) {
                    EXPECT_EQ(Shown(memo.TimeOf(recipe, {text})), Shown(recipe.TimeOf({text})))
                        << Utf16ToUtf8(text) << " after " << Utf16ToUtf8(from);
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
