// The range of a signal and its drawing.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "host/store/Sparkline.h"

namespace {

using kelvarin::store::NumberRange;
using kelvarin::store::RangeOf;
using kelvarin::store::Sparkline;

// `count` values of which one is another.
std::vector<double> AllBut(std::size_t count, double all, std::size_t place, double other) {
    std::vector<double> values(count, all);
    values[place] = other;
    return values;
}

std::vector<double> Ramp(std::size_t count) {
    std::vector<double> values;
    while (values.size() < count) values.push_back(static_cast<double>(values.size()));
    return values;
}

std::string Bounds(const NumberRange& range) {
    if (range.IsEmpty()) return "empty";
    const auto text = [](double number) {
        if (std::abs(number) < 1e9) return std::to_string(std::lround(number));
        return std::string(number < 0 ? "-" : "") + (std::isinf(number) ? "inf" : "huge");
    };
    return text(range.Lowest) + ".." + text(range.Highest);
}

TEST(Sparkline, DrawsValuesAndKnowsTheirRange) {
    const struct {
        const char* Name;
        std::vector<double> Values;
        std::size_t Width;
        const char* Line;
        const char* Range;
    } cases[] = {
        {"nothing", {}, 4, "", "empty"},
        {"no number", {NAN, NAN}, 4, "", "empty"},
        {"one value", {5}, 4, "▁", "5..5"},
        {"a gap", {0, 7, NAN, 3}, 4, "▁█ ▄", "0..7"},
        {"infinity is a gap, but in the range", {0, 7, INFINITY, 7}, 4, "▁█ █", "0..inf"},
        {"both infinities", {-INFINITY, 1, INFINITY}, 4, " ▁ ", "-inf..inf"},
        {"only infinite", {INFINITY}, 4, "", "inf..inf"},
        {"all levels", {0, 1, 2, 3, 4, 5, 6, 7}, 8, "▁▂▃▄▅▆▇█", "0..7"},
        {"fewer columns than values", {0, 0, 7, 7}, 2, "▁█", "0..7"},
        {"more columns than values", {0, 7}, 10, "▁█", "0..7"},
        {"a spike among many", AllBut(1000, 0, 700, 7), 4, "▁▁█▁", "0..7"},
        {"a drop at the end", AllBut(999, 0, 998, -7), 4, "███▁", "-7..0"},
        {"more values than buckets", Ramp(100'000), 4, "▁▃▆█", "0..99999"},
        {"a span beyond all numbers", {-1.7e308, 1.7e308}, 2, "▁▁", "-huge..huge"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        Sparkline line;
        line.Add(std::span<const double>(test.Values));
        EXPECT_EQ(line.Draw(test.Width), test.Line);
        EXPECT_EQ(Bounds(line.Range()), test.Range);
    }
}

// The parts that the values come in must not matter.
TEST(Sparkline, IsTheSameInParts) {
    std::vector<double> values = Ramp(1000);
    values[500] = -INFINITY;
    Sparkline whole;
    whole.Add(std::span<const double>(values));
    for (const std::size_t part : {1u, 3u, 64u, 999u}) {
        Sparkline parts;
        for (std::size_t at = 0; at < values.size(); at += part)
            parts.Add(std::span<const double>(values).subspan(at, std::min(part, values.size() - at)));
        EXPECT_EQ(parts.Draw(64), whole.Draw(64)) << part;
        EXPECT_EQ(Bounds(parts.Range()), Bounds(whole.Range())) << part;
    }
}

// Where a range is refused, the values say what it can't.
TEST(Sparkline, IsTheSameByRanges) {
    std::vector<double> values = Ramp(1000);
    values[500] = -INFINITY;
    values[700] = NAN;
    Sparkline whole;
    whole.Add(std::span<const double>(values));
    for (const std::size_t part : {1u, 3u, 16u, 999u}) {
        Sparkline parts;
        int taken = 0;
        for (std::size_t at = 0; at < values.size(); at += part) {
            const auto some = std::span<const double>(values).subspan(at, std::min(part, values.size() - at));
            if (parts.AddRange(RangeOf(some), some.size())) {
                ++taken;
            } else {
                parts.Add(some);
            }
        }
        EXPECT_GT(taken, 0) << part;
        EXPECT_EQ(parts.Draw(64), whole.Draw(64)) << part;
        EXPECT_EQ(Bounds(parts.Range()), Bounds(whole.Range())) << part;
    }
}

TEST(Sparkline, KnowsTheRangeOfEveryType) {
    const struct {
        std::vector<double> Numbers;
        const char* Range;
    } doubles[] = {
        {{}, "empty"},
        {{3}, "3..3"},
        {{NAN, 3, NAN}, "3..3"},
        {{1, 2, 3, 4, -5}, "-5..4"},
        {{9, 2, 3, 4, 5, 6, 7, 8}, "2..9"},
        {{0, 0, 0, NAN, INFINITY}, "0..inf"},
    };
    for (const auto& test : doubles) EXPECT_EQ(Bounds(RangeOf(std::span(test.Numbers))), test.Range);
    const struct {
        std::vector<std::int64_t> Numbers;
        const char* Range;
    } integers[] = {{{}, "empty"}, {{3}, "3..3"}, {{2, -7, 5}, "-7..5"}};
    for (const auto& test : integers) EXPECT_EQ(Bounds(RangeOf(std::span(test.Numbers))), test.Range);
    const struct {
        std::vector<std::uint8_t> Values;
        const char* Range;
    } truths[] = {{{}, "empty"}, {{0}, "0..0"}, {{0xFF}, "1..1"}, {{1, 0, 0xFF}, "0..1"}};
    for (const auto& test : truths) EXPECT_EQ(Bounds(RangeOf(std::span(test.Values))), test.Range);
}

}  // namespace
