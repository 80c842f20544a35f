// What a copy holds, for small files and hand-made plans.
#include "host/plan/CleanCopy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kit/Workdir.h"
#include "platform/framework/File.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

constexpr std::int64_t Second = 1'000'000'000;

// Columns as "Zeit@ Druck|bar#f Ort#t": a name, "@" for a column of the time, a unit after "|", and a type
// after "#" (t text, c character, b boolean, i integer, h hexadecimal, f float; float without one).
std::vector<PlannedColumn> ColumnsOf(std::string text) {
    std::vector<PlannedColumn> columns;
    constexpr std::string_view Types = "tcbihf";
    while (!text.empty()) {
        std::string one = text.substr(0, text.find(' '));
        text.erase(0, one.size() + 1);
        PlannedColumn column;
        column.Type = ColumnType::Float;
        if (const std::size_t at = one.find('#'); at != one.npos) {
            column.Type = static_cast<ColumnType>(Types.find(one[at + 1]));
            one.erase(at);
        }
        if (const std::size_t at = one.find('|'); at != one.npos) {
            column.Unit = Utf8ToUtf16(one.substr(at + 1));
            one.erase(at);
        }
        column.IsTime = one.ends_with('@');
        if (column.IsTime) one.pop_back();
        column.Name = Utf8ToUtf16(one == "-" ? "" : one);
        columns.push_back(column);
    }
    return columns;
}

// A plan for lines separated by semicolons, with the names in line 1.
ReadingPlan PlanOf(const std::string& columns, const TimeRecipe& recipe, char16_t mark = u'.') {
    ReadingPlan plan;
    plan.How.Separator = u';';
    plan.Columns = ColumnsOf(columns);
    plan.Width = plan.Columns.size();
    plan.NamesLine = 1;
    plan.FirstLine = 2;
    plan.Mark = mark;
    plan.Times.emplace();
    plan.Times->Recipe = recipe;
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        if (plan.Columns[i].IsTime && recipe.Parts.empty()) plan.Times->Recipe.Columns.push_back(i);
    }
    return plan;
}

TimeRecipe Text() {
    TimeRecipe recipe;
    recipe.IsAbsolute = true;
    return recipe;
}

TimeRecipe Number(std::int64_t unit, char16_t mark = u'.') {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Number;
    recipe.Unit = unit;
    recipe.Mark = mark;
    return recipe;
}

struct Copied {
    CopyResult Result;
    std::string Text;  // without the byte order mark, "|" for a tab
};

Copied CopyOf(const std::string& text, const ReadingPlan& plan, CopyOptions options = {}) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", text);
    Copied copied{WriteCleanCopy(source, plan, folder.Path("copy.csv"), options), folder.Read("copy.csv")};
    EXPECT_EQ(copied.Result.Failure, "");
    EXPECT_TRUE(copied.Text.starts_with("\xEF\xBB\xBF"));
    copied.Text.erase(0, 3);
    for (char& c : copied.Text) c = c == '\t' ? '|' : c;
    EXPECT_EQ(folder.Read("source.csv"), text);
    EXPECT_EQ(folder.Names(), "copy.csv source.csv");
    return copied;
}

// The lines of the file that the lines of the copy come from.
std::string LinesOf(const CopyResult& result) {
    std::string text;
    for (std::uint64_t i = 1; i <= result.Lines.Count(); ++i)
        text += (text.empty() ? "" : " ") + std::to_string(result.Lines.SourceLine(i));
    return text;
}

std::string ShownLines(const char* kind, const LinesLeftOut& lines) {
    if (lines.Count == 0) return {};
    std::string text = std::string(" ") + kind + " " + std::to_string(lines.Count) + ":";
    for (const std::uint64_t line : lines.First) text += " " + std::to_string(line);
    return text;
}

std::string LeftOut(const CopyRows& rows) {
    return ShownLines("blank", rows.Blank) + ShownLines("header", rows.Headers) +
           ShownLines("timeless", rows.Timeless) + ShownLines("other", rows.OtherTable);
}

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

// Times come out as texts of three kinds.
TEST(CleanCopy, WritesTimes) {
    TimeRecipe clock;
    clock.RollsOver = true;
    TimeRecipe epoch = Number(Second / 1000);
    epoch.IsAbsolute = epoch.IsUtc = true;
    TimeRecipe zoned = Text();
    zoned.AppliesZone = true;
    TimeRecipe days = Number(86'400 * Second);
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
         Number(Second),
         {"-0.5", "0", "0.25"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"0.000000000", "0.500000000", "0.750000000"},
         Second / 2},
        {"backwards before a trigger",
         Number(Second),
         {"1", "-2"},
         CopyTimes::Elapsed,
         "Time [s]",
         {"0.000000000", "3.000000000"},
         2 * Second},
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
        const Copied copied = CopyOf(std::string("t;v\n") + c.Lines, PlanOf("t@ v#i", Number(Second)));
        EXPECT_EQ(LeftOut(copied.Result.Rows), c.LeftOut);
        EXPECT_EQ(LinesOf(copied.Result), c.Numbers);
        EXPECT_EQ(copied.Text, "t|v|Time\n|1|0.000000000\n|2|1.000000000\n");
    }
}

TEST(CleanCopy, NumbersNoMoreThanTwentyLinesOfAKind) {
    const Copied copied =
        CopyOf("t;v\n0;1\n" + std::string(30, '\n') + "1;1\n", PlanOf("t@ v#i", Number(Second)));
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
                ReadingPlan plan = PlanOf("t@ v#t", Number(Second));
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
    const ReadingPlan plan = PlanOf("t@ who#t v#i", Number(Second), u',');
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
        const Copied copied = CopyOf(text, PlanOf("t@ " + std::string(c.Column), Number(Second), u','));
        EXPECT_EQ(copied.Text, wanted);
        ASSERT_EQ(copied.Result.Types.size(), 2u);
        EXPECT_EQ(copied.Result.Types[1], c.Type);
    }
}

TEST(CleanCopy, MakesNamesSafe) {
    const std::string text = "t;\"a \"\"b\"\"\tc\";v\n0;1;2\n";
    ReadingPlan plan = PlanOf("t@ a v", Number(Second));
    plan.Columns[1].Name = u" a \"b\"\tc\n";
    EXPECT_EQ(CopyOf(text, plan).Text, "t|a 'b' c|v|Time\n|1|2|0.000000000\n");
}

TEST(CleanCopy, CountsCellsBeyondItsColumns) {
    const Copied copied = CopyOf("t;v\n0;1;7;;8\n1;2\n", PlanOf("t@ v#i", Number(Second)));
    EXPECT_EQ(copied.Text, "t|v|Time\n|1|0.000000000\n|2|1.000000000\n");
    EXPECT_EQ(copied.Result.Changes.ExtraCells, 2u);
}

TEST(CleanCopy, FillsShortRows) {
    const Copied copied = CopyOf("t;v;w\n0;1\n1;2;3\n", PlanOf("t@ v#i w#i", Number(Second)));
    EXPECT_EQ(copied.Text, "t|v|w|Time\n|1||0.000000000\n|2|3|1.000000000\n");
}

TEST(CleanCopy, CountsRowsWhereNoColumnHoldsTimes) {
    TimeRecipe interval;
    interval.Kind = TimeKind::Interval;
    interval.Unit = Second / 10;
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
    const CopyResult result = WriteCleanCopy(source, PlanOf("t@ v#i", Number(Second)), file, CopyOptions{});
    EXPECT_EQ(result.Failure, "");
    CFile reader;
    ASSERT_TRUE(reader.Open(file.Path().c_str(), CFile::modeRead | CFile::shareExclusive, nullptr));
    char bytes[100];
    const std::string text(bytes, reader.Read(bytes, sizeof bytes));
    EXPECT_EQ(text, "\xEF\xBB\xBFt\tv\tTime\n\t2\t0.000000000\n\t1\t1.000000000\n");
}

}  // namespace
