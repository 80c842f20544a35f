// Lines of a copy and where they come from.
#include "host/plan/LineMap.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace kelvarin::plan;

TEST(LineMap, KnowsTheLineOfTheFileForEachLineOfTheCopy) {
    const struct {
        const char* About;
        std::vector<std::uint64_t> Lines;
        std::size_t Entries;
    } cases[] = {
        {"one after the other", {1, 2, 3, 4, 5}, 1},
        {"backwards", {9, 8, 7, 6}, 1},
        {"down to the first line", {3, 2, 1}, 1},
        {"each second one", {4, 6, 8, 10}, 1},
        {"left-out lines between", {2, 3, 4, 8, 9, 20, 21, 22}, 3},
        {"no order at all", {5, 1, 9, 2, 8, 8, 3}, 4},
        {"a header from nowhere", {0, 1, 2, 3}, 1},
        {"a header from further above", {7, 10, 11, 12, 13}, 2},
        {"forwards and backwards", {1, 2, 3, 2, 1, 2, 3}, 3},
        {"one line", {1}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        LineMap map;
        for (const std::uint64_t line : c.Lines) map.Add(line);
        std::vector<std::uint64_t> shown;
        for (std::uint64_t i = 1; i <= map.Count(); ++i) shown.push_back(map.SourceLine(i));
        EXPECT_EQ(shown, c.Lines);
        EXPECT_EQ(map.Entries(), c.Entries);
    }
}

TEST(LineMap, KnowsNoLineBeyondTheCopy) {
    LineMap map;
    EXPECT_EQ(map.SourceLine(1), 0u);
    map.Add(12);
    map.Add(13);
    EXPECT_EQ(map.SourceLine(0), 0u);
    EXPECT_EQ(map.SourceLine(3), 0u);
}

}  // namespace
