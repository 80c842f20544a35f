// Times out of the cells of rows.
#include "host/plan/TimeRecipe.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "host/plan/Cells.h"
#include "host/plan/Durations.h"
#include "host/plan/ExactProduct.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

struct ProductCase {
    const char* Number;
    std::int64_t Unit;
    std::optional<std::int64_t> Product;
};

TEST(PlanRecipe, MultipliesExactly) {
    const ProductCase cases[] = {
        {"0", Second, 0},
        {"1.5", Second, 1'500'000'000},
        {"-1.5", Second, -1'500'000'000},
        {"+2", Second, 2'000'000'000},
        {".5", Second, 500'000'000},
        {"1706778000.25", Second, 1'706'778'000'250'000'000},
        {"1706778000.123456789", Second, 1'706'778'000'123'456'789},
        {"1706778000055", Millisecond, 1'706'778'000'055'000'000},
        {"0.1", Minute, 6 * Second},
        {"182.020833", DayLength, 15'726'599'971'200'000},
        // Rounded to the nearest nanosecond.
        {"0.0000000004", Second, 0},
        {"0.0000000006", Second, 1},
        {"0.3333333333333333333333", Second, 333'333'333},
        // Exponents.
        {"1e-3", Second, Millisecond},
        {"1.5E3", Second, 1500 * Second},
        {"12e-10", Second, 1},
        {"1e400", Second, std::nullopt},
        {"1e-300", Second, 0},
        // Beyond 64 bits, and no numbers.
        {"9223372036", Second, 9'223'372'036'000'000'000},
        {"9223372037", Second, std::nullopt},
        {"99999999999999999999", 1, std::nullopt},
        {"", Second, std::nullopt},
        {"-", Second, std::nullopt},
        {"1.2.3", Second, std::nullopt},
        {"1,5", Second, std::nullopt},
        {"5 s", Second, std::nullopt},
        {"1e", Second, std::nullopt},
    };
    for (const ProductCase& c : cases)
        EXPECT_EQ(ExactProduct(Utf8ToUtf16(c.Number), c.Unit, u'.'), c.Product) << c.Number;
    EXPECT_EQ(ExactProduct(u"1,5", Second, u','), 1'500'000'000);
    EXPECT_EQ(ExactProduct(u"25570.5", DayLength, u'.', 25'569), DayLength * 3 / 2);
}

// The times of rows, in seconds and with a blank between; "-" for none.
std::string SecondsOf(const TimeRecipe& recipe, std::initializer_list<const char*> lines, std::size_t width) {
    TimeWalk walk(recipe);
    LineCutter cut({u';', false, false});
    std::string seconds;
    for (const char* line : lines) {
        const std::u16string wide = Utf8ToUtf16(line);
        const std::optional<std::int64_t> time = walk.Next(cut(wide), width);
        if (!seconds.empty()) seconds += " ";
        seconds += time ? std::to_string(*time / Second) : "-";
    }
    return seconds;
}

TimeRecipe Clock() {
    TimeRecipe recipe;
    recipe.Columns = {0};
    recipe.RollsOver = true;
    return recipe;
}

TEST(PlanRecipe, ClocksRunOverMidnight) {
    EXPECT_EQ(SecondsOf(Clock(), {"23:59:58;1", "23:59:59;1", "00:00:00;1", "00:00:01;1"}, 2),
              "86398 86399 86400 86401");
    // A step back by less than half a day is none.
    EXPECT_EQ(SecondsOf(Clock(), {"10:00:05;1", "10:00:03;1", "10:00:06;1"}, 2), "36005 36003 36006");
    TimeRecipe plain = Clock();
    plain.RollsOver = false;
    EXPECT_EQ(SecondsOf(plain, {"23:59:59;1", "00:00:00;1"}, 2), "86399 0");
}

TEST(PlanRecipe, LinesWithoutATimeOrWithNothingElseAreNoRows) {
    EXPECT_EQ(SecondsOf(Clock(), {"10:00:00;1", "n/a;2", ";", "10:00:01", "", "10:00:02;"}, 2),
              "36000 - - - - 36002");
    // In a wide table a time with empty cells is no row either.
    EXPECT_EQ(SecondsOf(Clock(), {"10:00:00;1;2;3;4", "10:00:01;;;;", "10:00:02;;5;;"}, 5), "36000 - 36002");
}

TEST(PlanRecipe, IntervalsCountRows) {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Interval;
    recipe.Unit = 2 * Second;
    recipe.Epoch = 100 * Second;
    EXPECT_EQ(SecondsOf(recipe, {"1;2", "1;2", "1;2"}, 2), "100 102 104");
}

TEST(PlanRecipe, PartsAddUp) {
    struct PartsCase {
        std::vector<PartColumn> Parts;
        const char* Row;
        std::optional<std::int64_t> Seconds;
    };
    constexpr std::int64_t Noon = 1'706'702'400;  // of 31 January 2024
    const std::vector<PartColumn> day = {
        {0, TimePart::Year}, {1, TimePart::Month}, {2, TimePart::Day}, {3, TimePart::Hours}};
    const PartsCase cases[] = {
        {day, "2024;1;31;12", Noon},
        {day, "24;01;31;12", Noon},
        {day, "2024;1;31;12.5", Noon + 1800},
        {day, "2024;1;31;24", Noon + 43'200},
        {day, "2024;13;1;0", std::nullopt},
        {day, "2024;1;x;0", std::nullopt},
        {day, "2024;1;31", std::nullopt},
        {{{0, TimePart::Year}, {1, TimePart::DayOfYear}, {2, TimePart::HoursMinutes}}, "2024;31;1200", Noon},
        {{{0, TimePart::Year}, {1, TimePart::DayOfYear}, {2, TimePart::HoursMinutes}},
         "2024;31;1260",
         std::nullopt},
        {{{0, TimePart::Date}, {1, TimePart::Clock}, {2, TimePart::Milliseconds}},
         "31.01.2024;12:00:00;999",
         Noon},
        {{{0, TimePart::Date}, {1, TimePart::Clock}, {2, TimePart::Milliseconds}},
         "31.01.2024;12:00:00;1000",
         std::nullopt},
        {{{0, TimePart::Week}, {1, TimePart::Seconds}}, "2299;302400", Noon},
    };
    for (const PartsCase& c : cases) {
        TimeRecipe recipe;
        recipe.Kind = TimeKind::Parts;
        recipe.Parts = c.Parts;
        const std::u16string row = Utf8ToUtf16(c.Row);
        LineCutter cut({u';', false, false});
        const std::optional<std::int64_t> time = recipe.TimeOf(cut(row));
        EXPECT_EQ(time ? std::optional(*time / Second) : std::nullopt, c.Seconds) << c.Row;
    }
}

}  // namespace
