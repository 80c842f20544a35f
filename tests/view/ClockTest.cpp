// Moments and marks of a time axis as text.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "view/model/Clock.h"
#include "view/model/TimeTicks.h"

namespace clock_tests {

using namespace kelvarin::view;

constexpr std::int64_t Second = 1'000'000'000;
// 2024-01-31 07:00:00 UTC; 2024-03-31 00:00 UTC, an hour before summer time.
constexpr std::int64_t Winter = 1'706'684'400 * Second;
constexpr std::int64_t Spring = 1'711'843'200 * Second;

class InBerlin : public testing::Test {
  protected:
    void SetUp() override { SetZone("CET-1CEST,M3.5.0,M10.5.0/3"); }
    void TearDown() override { SetZone(nullptr); }

    static void SetZone(const char* zone) {
        if (zone == nullptr) {
            unsetenv("TZ");
        } else {
            setenv("TZ", zone, 1);
        }
        tzset();
    }
};

using ClockText = InBerlin;
using TicksText = InBerlin;

TEST_F(ClockText, IsExactAndIsReadBack) {
    const struct {
        Clock Style;
        std::int64_t Time;
        const char* Text;
    } cases[] = {
        {{ClockStyle::Local}, Winter, "2024-01-31 08:00:00"},
        {{ClockStyle::Local}, Winter + 1, "2024-01-31 08:00:00.000000001"},
        {{ClockStyle::Local}, Winter + 500'000'000, "2024-01-31 08:00:00.5"},
        {{ClockStyle::Local}, Spring + 3600 * Second, "2024-03-31 03:00:00"},
        {{ClockStyle::Zoned}, Winter, "2024-01-31 08:00:00+01:00"},
        {{ClockStyle::Zoned}, Spring + 3600 * Second, "2024-03-31 03:00:00+02:00"},
        {{ClockStyle::Utc}, Winter + 999'999'999, "2024-01-31 07:00:00.999999999Z"},
        {{ClockStyle::Relative, Winter}, Winter, "00:00:00"},
        {{ClockStyle::Relative, Winter}, Winter + 90'061 * Second + 7, "25:01:01.000000007"},
        {{ClockStyle::Relative, Winter}, Winter - 1, "-00:00:00.000000001"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(MomentText(test.Style, test.Time), test.Text);
        if (test.Style.Style == ClockStyle::Zoned || test.Style.Style == ClockStyle::Utc) continue;
        std::int64_t read = 0;
        EXPECT_TRUE(ReadMoment(test.Style, test.Text, 0, read)) << test.Text;
        EXPECT_EQ(read, test.Time) << test.Text;
    }
}

TEST_F(ClockText, IsReadInShortForms) {
    const Clock local{ClockStyle::Local};
    const Clock relative{ClockStyle::Relative, Winter};
    const struct {
        Clock Style;
        const char* Text;
        std::int64_t Time;  // -1: refused
    } cases[] = {
        {local, "2024-01-31T08:00", Winter},
        {local, "2024-01-31", Winter - 8 * 3600 * Second},
        {local, "08:00:00.25", Winter + Second / 4},
        {relative, "1.5", Winter + Second * 3 / 2},
        {relative, "01:00", Winter + 3600 * Second},
        {relative, "-2", Winter - 2 * Second},
        {local, "", -1},
        {local, "2024-02-30", -1},
        {local, "2024-01-31 8h", -1},
        {local, "2024-01-31 08:60", -1},
        {local, "2024-01-31 08:00:00.0000000001", -1},
        {local, "yesterday", -1},
        {relative, "1e3", -1},
        {relative, "99999999999999999999", -1},
    };
    for (const auto& test : cases) {
        std::int64_t read = 0;
        const std::int64_t time = ReadMoment(test.Style, test.Text, Winter, read) ? read : -1;
        EXPECT_EQ(time, test.Time) << test.Text;
    }
}

TEST(DurationText, KeepsEveryNanosecond) {
    const struct {
        std::int64_t Time;
        const char* Text;
    } cases[] = {{0, "+0 ns"},
                 {-1, "-1 ns"},
                 {1'500, "+1.5 µs"},
                 {-12'500'001, "-12.500001 ms"},
                 {Second + 1, "+1.000000001 s"},
                 {119 * Second, "+119 s"},
                 {3600 * Second + 1, "+01:00:00.000000001"},
                 {INT64_MIN, "-2562047:47:16.854775807"}};
    for (const auto& test : cases) EXPECT_EQ(DurationText(test.Time), test.Text);
}

std::string MarksInWords(const TimeTicks& ticks) {
    std::string text = ticks.Base.empty() ? "" : "[" + ticks.Base + "] ";
    for (const TimeTick& mark : ticks.Marks) {
        std::string label = mark.Label;
        for (char& c : label) c = c == '\n' ? '|' : c;
        text += (&mark == ticks.Marks.data() ? "" : ", ") + label;
    }
    return text;
}

TEST_F(TicksText, AreRoundTimesOfTheClock) {
    const Clock local{ClockStyle::Local};
    const Clock relative{ClockStyle::Relative, Winter};
    const struct {
        Clock Style;
        TimeRange Range;
        const char* Marks;
    } cases[] = {
        {local, {Winter, Winter + 10 * Second}, "08:00:00|2024-01-31, 08:00:05, 08:00:10"},
        {local,
         {Winter, Winter + 2 * Second},
         "08:00:00.0|2024-01-31, 08:00:00.5, 08:00:01.0, 08:00:01.5, 08:00:02.0"},
        {local, {Winter + 3, Winter + 9}, "[2024-01-31 08:00:00.000000] +4 ns, +6 ns, +8 ns"},
        {local, {Winter, Winter + 4000}, "[2024-01-31 08:00:00.00] +0 ns, +1 µs, +2 µs, +3 µs, +4 µs"},
        // An hour that the clocks leave out.
        {local, {Spring, Spring + 4 * 3600 * Second}, "01:00|2024-03-31, 03:00, 04:00, 05:00, 06:00"},
        {local, {Winter, Winter + 3 * 86'400 * Second}, "2024-02-01, 2024-02-02, 2024-02-03"},
        {local, {Winter, Winter + 120 * 86'400 * Second}, "2024-02, 2024-03, 2024-04, 2024-05"},
        {local, {Winter, Winter + 3650 * 86'400 * Second}, "2025, 2030"},
        {relative,
         {Winter - Second, Winter + 3 * Second},
         "-00:00:01, 00:00:00, 00:00:01, 00:00:02, 00:00:03"},
    };
    for (const auto& test : cases) EXPECT_EQ(MarksInWords(TicksOf(test.Style, test.Range, 5)), test.Marks);
}

// However short or long the range is, there are marks, not more than wanted, and all within it.
TEST_F(TicksText, AreNeverTooManyNorOutside) {
    for (const ClockStyle style : {ClockStyle::Local, ClockStyle::Utc, ClockStyle::Relative}) {
        const Clock clock{style, Winter};
        for (std::int64_t length = 1; length < 3'000'000'000'000'000'000; length += length / 3 + 1) {
            const TimeRange range{Winter + length % 7, Winter + length % 7 + length};
            const TimeTicks ticks = TicksOf(clock, range, 8);
            ASSERT_LE(ticks.Marks.size(), 9u) << length;
            ASSERT_GE(ticks.Marks.size(), 1u) << length;
            for (std::size_t i = 0; i < ticks.Marks.size(); ++i) {
                const TimeTick& mark = ticks.Marks[i];
                ASSERT_TRUE(mark.At >= range.From && mark.At <= range.To) << length;
                if (i == 0) continue;
                ASSERT_NE(mark.Label, ticks.Marks[i - 1].Label) << length;
            }
        }
    }
}

}  // namespace clock_tests
