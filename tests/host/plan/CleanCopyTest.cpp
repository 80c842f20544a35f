// What a copy holds, for small files and hand-made plans.
#include "host/plan/CleanCopy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/plan/CopyKit.h"

namespace {

using namespace copies;

TEST(CleanCopy, KeepsTheColumnsAndPutsTheTimeLast) {
    const Copied copied =
        CopyOf("Ort;Datum;Druck\nHalle;31.01.2024 12:00:00;1,5\nHof;31.01.2024 12:00:01,25;-2\n",
               PlanOf("Ort#t Datum@ Druck|bar", Text(), u','));
    EXPECT_EQ(copied.Text,
              "Ort|Datum|Druck|Time\n"
              "Halle||1.5|2024-01-31 12:00:00.000000000\n"
              "Hof||-2|2024-01-31 12:00:01.250000000\n");
    EXPECT_EQ(copied.Result.Times, CopyTimes::Local);
    EXPECT_EQ(LinesOf(copied.Result), "1 2 3");
    EXPECT_EQ(copied.Result.Changes.Values, 1u);
}

TEST(CleanCopy, ForPeopleBeginsWithTheTimeAndHasUnitsInItsNames) {
    CopyOptions options;
    options.Layout = CopyLayout::ForPeople;
    const Copied copied = CopyOf("Ort;Datum;Druck;;T [K]\nHalle;31.01.2024 12:00:00;1,5;7;300\n",
                                 PlanOf("Ort#t Datum@ Druck|bar - T_[K]|K", Text(), u','), options);
    EXPECT_EQ(copied.Text,
              "Time|Ort|Druck [bar]|Column 4|T_[K]\n"
              "2024-01-31 12:00:00.000000000|Halle|1.5|7|300\n");
}

TEST(CleanCopy, LeavesOutLinesThatAreNoRows) {
    const struct {
        const char* About;
        const char* Lines;
        const char* LeftOut;
        const char* Numbers;
    } cases[] = {
        {"nothing", "0;1\n1;2\n", "", "1 2 3"},
        {"blank lines", "0;1\n\n;\n  \n1;2\n\n", " blank 4: 3 4 5 7", "1 2 6"},
        {"the header again", "0;1\nt;v\n1;2\n", " header 1: 3", "1 2 4"},
        {"a footer", "0;1\n1;2\nEnd of file\nsum;3\n", " timeless 2: 4 5", "1 2 3"},
        {"a table of another width", "0;1\n1;2\na\nb\nc\nd\ne\nf\n0;1;2\n3;4\n",
         " timeless 6: 4 5 6 7 8 9 other 2: 10 11", "1 2 3"},
        {"a block after many lines", "0;1\na\nb\nc\nd\ne\nf\n1;2\n", " timeless 6: 3 4 5 6 7 8", "1 2 9"},
        {"a block after another table", "0;1\na\nb\nc\nd\ne\nf\n5;1;2\nt;v\n1;2\n",
         " header 1: 10 timeless 6: 3 4 5 6 7 8 other 1: 9", "1 2 11"},
        {"a wider first row", "a\nb\nc\nd\ne\nf\n0;1;2\n1;2\n", " timeless 6: 2 3 4 5 6 7", "1 8 9"},
        {"a wider row after a few lines", "0;1\na\nb\n1;2;3\n", " timeless 2: 3 4", "1 2 5"},
        {"a cell without a time", "0;1\n?;5\n1;2\n", " timeless 1: 3", "1 2 4"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        const Copied copied = CopyOf(std::string("t;v\n") + c.Lines, PlanOf("t@ v#i", Number(OneSecond)));
        EXPECT_EQ(LeftOut(copied.Result.Rows), c.LeftOut);
        EXPECT_EQ(LinesOf(copied.Result), c.Numbers);
        EXPECT_EQ(copied.Text, "t|v|Time\n|1|0.000000000\n|2|1.000000000\n");
    }
}

TEST(CleanCopy, NumbersNoMoreThanTwentyLinesOfAKind) {
    const Copied copied =
        CopyOf("t;v\n0;1\n" + std::string(30, '\n') + "1;1\n", PlanOf("t@ v#i", Number(OneSecond)));
    EXPECT_EQ(copied.Result.Rows.Blank.Count, 30u);
    EXPECT_EQ(copied.Result.Rows.Blank.First.size(), 20u);
    EXPECT_EQ(copied.Result.Rows.Blank.First.back(), 22u);
}

TEST(CleanCopy, SortsRowsByTime) {
    const struct {
        const char* About;
        const char* Lines;
        const char* Values;
        const char* Numbers;
        bool IsSorted;
    } cases[] = {
        {"in order", "0;a\n1;b\n1;c\n2;d\n", "abcd", "1 2 3 4 5", false},
        {"backwards", "2;a\n1;b\n0;c\n", "cba", "1 4 3 2", true},
        {"one row late", "0;a\n2;b\n1;c\n3;d\n", "acbd", "1 2 4 3 5", true},
        {"repeats keep their order", "1;a\n0;b\n1;c\n0;d\n", "bdac", "1 3 5 2 4", true},
        {"starts again", "0;a\n1;b\n\n0;c\n1;d\n", "acbd", "1 2 5 3 6", true},
    };
    for (const bool isExpected : {false, true}) {
        for (const std::size_t mostBytes : {std::size_t{1}, std::size_t{1} << 20}) {
            for (const auto& c : cases) {
                SCOPED_TRACE(std::string(c.About) + (isExpected ? ", expected" : "") + ", " +
                             std::to_string(mostBytes) + " bytes");
                ReadingPlan plan = PlanOf("t@ v#t", Number(OneSecond));
                // What the sample showed.
                plan.Times->Trial.Falling = isExpected && c.IsSorted;
                CopyOptions options;
                options.MostSortedBytes = mostBytes;
                const Copied copied = CopyOf(std::string("t;v\n") + c.Lines, plan, options);
                std::string values;
                for (std::size_t at = 0; (at = copied.Text.find("\n|", at)) != std::string::npos; ++at)
                    values += copied.Text[at + 2];
                EXPECT_EQ(values, c.Values);
                EXPECT_EQ(LinesOf(copied.Result), c.Numbers);
                EXPECT_EQ(copied.Result.Sorted, c.IsSorted);
            }
        }
    }
}

// One device's rows are out of order, another's show another type, a third has none.
TEST(CleanCopy, MakesThoseOfSeveralDevicesAsOneByOne) {
    const std::string text = "t;who;v\n0;a;1\n5;b;1\n\n1;a;2\nnote\n3;b;2,5\n2;a;3\n4;b;x y\n";
    const ReadingPlan plan = PlanOf("t@ who#t v#i", Number(OneSecond), u',');
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", text);
    const auto copiesOf = [&](const std::vector<const char16_t*>& devices) {
        std::vector<DeviceCopy> copies;
        for (const char16_t* const device : devices)
            copies.push_back({{1, device}, folder.Path(Utf16ToUtf8(device) + ".csv")});
        return WriteDeviceCopies(source, plan, copies, {});
    };
    const std::vector<CopyResult> together = copiesOf({u"a", u"b", u"c"});
    ASSERT_EQ(together.size(), 3u);
    EXPECT_EQ(folder.Read("a.csv"),
              "\xEF\xBB\xBFt\twho\tv\tTime\n\ta\t1\t0.000000000\n\ta\t2\t1.000000000\n"
              "\ta\t3\t2.000000000\n");
    const std::string both = folder.Read("a.csv") + folder.Read("b.csv");
    EXPECT_EQ(together[2].Failure, "no line of the table has a time");
    EXPECT_TRUE(together[1].Sorted && !together[0].Sorted);
    std::size_t index = 0;
    for (const char16_t* const device : {u"a", u"b", u"c"}) {
        SCOPED_TRACE(Utf16ToUtf8(device));
        const CopyResult alone = std::move(copiesOf({device}).front());
        const CopyResult& one = together[index++];
        EXPECT_EQ(one.Types, alone.Types);
        EXPECT_EQ(LinesOf(one), LinesOf(alone));
        EXPECT_EQ(LeftOut(one.Rows), LeftOut(alone.Rows));
        EXPECT_EQ(one.Failure, alone.Failure);
    }
    EXPECT_EQ(folder.Read("a.csv") + folder.Read("b.csv"), both);
    EXPECT_EQ(folder.Names(), "a.csv b.csv source.csv");
}

// The plan saw a sample of the file; all its cells tell more.
TEST(CleanCopy, FollowsTheTypeOfAllCells) {
    const struct {
        const char* About;
        const char* Column;
        std::vector<const char*> Cells;
        ColumnType Type;
        std::vector<const char*> Written;
    } cases[] = {
        {"decimals later", "v#i", {"1", "2", "2,5"}, ColumnType::Float, {"1", "2", "2.5"}},
        {"an empty column that fills", "v#t", {"", "", "2,5"}, ColumnType::Float, {"", "", "2.5"}},
        {"truth values that are numbers", "v#b", {"0", "1", "7"}, ColumnType::Integer, {"0", "1", "7"}},
        {"numbers that are texts",
         "v",
         {"1,5", "door 3", "n/a"},
         ColumnType::Text,
         {"1,5", "\"door 3\"", "n/a"}},
        {"contacts", "v#b", {"open", "closed", "on"}, ColumnType::Text, {"open", "closed", "on"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        std::string text = "t;v\n";
        std::string wanted = "t|v|Time\n";
        for (std::size_t i = 0; i < c.Cells.size(); ++i) {
            text += std::to_string(i) + ";" + c.Cells[i] + "\n";
            wanted += "|" + std::string(c.Written[i]) + "|" + std::to_string(i) + ".000000000\n";
        }
        const Copied copied = CopyOf(text, PlanOf("t@ " + std::string(c.Column), Number(OneSecond), u','));
        EXPECT_EQ(copied.Text, wanted);
        ASSERT_EQ(copied.Result.Types.size(), 2u);
        EXPECT_EQ(copied.Result.Types[1], c.Type);
    }
}

TEST(CleanCopy, MakesNamesSafe) {
    const std::string text = "t;\"a \"\"b\"\"\tc\";v\n0;1;2\n";
    ReadingPlan plan = PlanOf("t@ a v", Number(OneSecond));
    plan.Columns[1].Name = u" a \"b\"\tc\n";
    EXPECT_EQ(CopyOf(text, plan).Text, "t|a 'b' c|v|Time\n|1|2|0.000000000\n");
}

TEST(CleanCopy, CountsCellsBeyondItsColumns) {
    const Copied copied = CopyOf("t;v\n0;1;7;;8\n1;2\n", PlanOf("t@ v#i", Number(OneSecond)));
    EXPECT_EQ(copied.Text, "t|v|Time\n|1|0.000000000\n|2|1.000000000\n");
    EXPECT_EQ(copied.Result.Changes.ExtraCells, 2u);
}

TEST(CleanCopy, FillsShortRows) {
    const Copied copied = CopyOf("t;v;w\n0;1\n1;2;3\n", PlanOf("t@ v#i w#i", Number(OneSecond)));
    EXPECT_EQ(copied.Text, "t|v|w|Time\n|1||0.000000000\n|2|3|1.000000000\n");
}

TEST(CleanCopy, CountsRowsWhereNoColumnHoldsTimes) {
    TimeRecipe interval;
    interval.Kind = TimeKind::Interval;
    interval.Unit = OneSecond / 10;
    ReadingPlan plan = PlanOf("a v#i", interval);
    plan.Times->Recipe.Columns.clear();
    const Copied copied = CopyOf("a;v\n5;1\na;v\nthe end;of it\n7;2\n", plan);
    EXPECT_EQ(copied.Text, "a|v|Time\n5|1|0.000000000\n7|2|0.100000000\n");
    EXPECT_EQ(LeftOut(copied.Result.Rows), " header 1: 3 timeless 1: 4");
}

TEST(CleanCopy, IsTheSameInAScratchFile) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", "t;v\n1;1\n0;2\n");
    ScratchFile file;
    const CopyResult result =
        WriteCleanCopy(source, PlanOf("t@ v#i", Number(OneSecond)), file, CopyOptions{});
    EXPECT_EQ(result.Failure, "");
    CFile reader;
    ASSERT_TRUE(reader.Open(file.Path().c_str(), CFile::modeRead | CFile::shareExclusive, nullptr));
    char bytes[100];
    const std::string text(bytes, reader.Read(bytes, sizeof bytes));
    EXPECT_EQ(text, "\xEF\xBB\xBFt\tv\tTime\n\t2\t0.000000000\n\t1\t1.000000000\n");
}

}  // namespace
