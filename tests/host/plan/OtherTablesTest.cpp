// The tables of short files beside the one that is read, and how each of them is taken.
#include "host/plan/OtherTables.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/PlanKit.h"
#include "host/plan/ReadingPlan.h"

namespace {

using namespace kelvarin::plan;

// "1-4 2x3" for lines 1 to 4 with 2 columns and 3 rows.
std::string InWords(const std::vector<OtherTable>& tables) {
    std::string words;
    for (const OtherTable& table : tables) {
        words += (words.empty() ? "" : ", ") + std::to_string(table.FirstLine) + "-" +
                 std::to_string(table.LastLine) + " " + std::to_string(table.Columns) + "x" +
                 std::to_string(table.Rows);
    }
    return words;
}

std::string Rows() {
    std::string rows;
    for (int i = 0; i < 20; ++i) rows += std::to_string(i) + ";1;2\n";
    return rows;
}

TEST(OtherTables, HaveNamesAndRowsOfTheirOwn) {
    const std::string rows = Rows();
    const std::pair<std::string, const char*> cases[] = {
        {"t;u;v\n" + rows, ""},
        {"a;b\n1;2\n2;3\n3;4\n\nt;u;v\n" + rows, "1-4 2x3"},
        {"t;u;v\n" + rows + "\na;b\n1;2\n2;3\n3;4\n", "23-26 2x3"},
        {"x;y\n1;2\n2;3\n3;4\nt;u;v\n" + rows + "c;d\n1;2\n2;3\n3;4\n", "1-4 2x3, 26-29 2x3"},
        {"Part;Low;High\nRail;3;20\nPump;0;80\nValve;0;1\n\nt;u;v\n" + rows, "1-4 3x3"},
        {"Setting;Low;High;Unit\nRail;3;20;bar\nPump;0;80;l\nValve;0;1;l\n\nt;u;v\n" + rows, "1-4 4x3"},
        // With units and a blank line.
        {"t;u;v\n" + rows + "\na;b\nV;A\n\n1;2\n2;3\n3;4\n", "23-28 2x3"},
        // As wide, below a title.
        {"t;u;v\n" + rows + "\nPart 2\na;b;c\n1;2;3\n2;3;3\n3;4;3\n", "24-27 3x3"},
        // The same header again, notes between rows, rows that end early, keys and values are no tables.
        {"t;u;v\n" + rows + "\nt;u;v\n" + rows, ""},
        {"t;u;v\n" + rows + "note;pump on;x\n" + rows, ""},
        {"t;u;v\n" + rows + "5;6\n6;7\n7;8\n", ""},
        {"Name;Wert\nBereich;5\nStufe;7\nOrt;8\n\nt;u;v\n" + rows, ""},
        {"t;u;v\n" + rows + "\na;b\n1;2\n2;3\n", ""},
    };
    for (const auto& [text, others] : cases) {
        const std::optional<ReadingPlan> plan = FindPlan(SampleOf(text));
        ASSERT_TRUE(plan) << text;
        EXPECT_EQ(InWords(plan->Others), others) << text;
        EXPECT_EQ(plan->Rows.Cells.front().size(), 3u) << text;
    }
}

// Fixed by its line, each becomes the table of the plan, whatever is above or below it.
TEST(OtherTables, AreTakenByTheirFirstLine) {
    const std::string rows = Rows();
    const std::string files[] = {
        "a;b\n1;2\n2;3\n3;4\n\nt;u;v\n" + rows,
        "t;u;v\n" + rows + "\na;b\n1;2\n2;3\n3;4\n",
        "t;u;v\n" + rows + "\na;b\n1;2\n2;3\n3;4\n\nt;u;v\n" + rows,
    };
    for (const std::string& text : files) {
        const FileSample sample = SampleOf(text);
        const std::optional<ReadingPlan> plan = FindPlan(sample);
        ASSERT_TRUE(plan && plan->Others.size() == 1) << text;
        const std::uint64_t line = plan->Others.front().FirstLine;
        const std::optional<ReadingPlan> other = FindPlan(sample, {{}, {}, line, {}});
        ASSERT_TRUE(other) << text;
        EXPECT_EQ(other->NamesLine, line) << text;
        EXPECT_EQ(other->FirstLine, line + 1) << text;
        EXPECT_EQ(other->Width, 2u) << text;
        EXPECT_EQ(other->RowsLookedAt, 3u) << text;
    }
}

}  // namespace
