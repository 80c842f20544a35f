// The types of columns by all their cells, and the plan of short files.
#include "host/plan/ReadingPlan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/plan/PlanKit.h"
#include "kit/Workdir.h"

namespace {

using namespace kelvarin::plan;

std::string TypeInWords(ColumnType type) {
    constexpr const char* Names[] = {"text", "character", "boolean", "integer", "hexadecimal", "float"};
    return Names[static_cast<int>(type)];
}

struct TypeCase {
    std::vector<const char*> Cells;
    const char* Type;
};

TEST(PlanTypes, AreWhatAllCellsAre) {
    const TypeCase cases[] = {
        {{"1", "2", "-3"}, "integer"},
        {{"1", "2", "3.5"}, "float"},
        {{"1", "1e5"}, "float"},
        {{"1.234.567", "5"}, "integer"},
        {{"0", "1", "1"}, "boolean"},
        {{"0", "0", "0"}, "integer"},  // may become any number
        {{"0", "1", "7"}, "integer"},
        {{"true", "false"}, "boolean"},
        {{"on", "1"}, "boolean"},
        {{"A", "B"}, "character"},
        {{"A", "BC"}, "text"},
        {{"A", "5"}, "text"},
        {{"12345678901234567890"}, "text"},  // beyond 64 bits
        // What stands for no value makes no text.
        {{"1", "", "n/a", "---", "2"}, "integer"},
        {{"1", "NaN", "2"}, "float"},
        {{"NaN", "NaN"}, "float"},
        {{"", ""}, "text"},
        // One word again and again between decimals stands for no value; several words are words.
        {{"1.5", "-O-F-", "2.5", "-O-F-", "3.5"}, "float"},
        {{"1.5", "MM", "MM", "MM", "MM"}, "float"},
        {{"17", ">>>>", "18", ">>>>"}, "integer"},
        {{"1.5D+01", "**********"}, "float"},
        {{"1.5", "lost", "2.5", "found", "3.5"}, "text"},
        {{"1", "auto", "2", "auto", "3"}, "text"},
        // Hexadecimal.
        {{"0x1F", "0x20"}, "hexadecimal"},
        {{"1F", "20", "A0"}, "hexadecimal"},
        {{"00000270", "000002E4"}, "hexadecimal"},
        {{"BF", "4C", "E2"}, "hexadecimal"},
        {{"AB", "CD", "EF"}, "text"},
        {{"A1", "B2", "A3"}, "text"},  // names
        {{"2BF", "5DC", "0C4"}, "text"},
        {{"1.5", "1e5"}, "float"},
        {{"12", "345"}, "integer"},
        // Numbers with one unit after each.
        {{"72%", "64%"}, "integer"},
        {{"26.2 V", "25 V"}, "float"},
        {{"26.2 V", "25 A"}, "text"},
        {{"+  7.5 g", "-  0.3 g"}, "float"},
        {{"1:1", "1:2"}, "text"},
    };
    for (const TypeCase& c : cases) {
        CellCounts counts;
        std::string cells;
        for (const char* cell : c.Cells) {
            counts.Add(Utf8ToUtf16(cell), u'.');
            cells += std::string(cell) + " ";
        }
        EXPECT_EQ(TypeInWords(counts.Type(false)), c.Type) << cells;
    }
}

TEST(PlanTypes, CountsAreNoTruthValues) {
    CellCounts counts;
    for (const char16_t* cell : {u"0", u"1", u"1"}) counts.Add(cell, u'.');
    EXPECT_EQ(counts.Type(true), ColumnType::Integer);
    EXPECT_EQ(counts.Type(false), ColumnType::Boolean);
    EXPECT_TRUE(IsCountName(u"Cycle Index"));
    EXPECT_TRUE(IsCountName(u"Schritt"));
    EXPECT_FALSE(IsCountName(u"Valve open"));
}

TEST(PlanTypes, AFewWordsAmongManyNumbersAreNoText) {
    CellCounts counts;
    for (int i = 0; i < 100; ++i) counts.Add(std::u16string(1, static_cast<char16_t>(u'0' + i % 10)), u'.');
    counts.Add(u"sensor error", u'.');
    EXPECT_EQ(counts.Type(false), ColumnType::Integer);
    for (int i = 0; i < 10; ++i) counts.Add(u"sensor error", u'.');
    EXPECT_EQ(counts.Type(false), ColumnType::Text);
}

TEST(ReadingPlan, BeginsBelowALongPreamble) {
    std::string text;
    for (int i = 0; i < 9000; ++i) text += "Event: nothing was heard of channel A today\n";
    text += "t;v\n";
    for (int i = 0; i < 5000; ++i) text += std::to_string(i) + ".5;" + std::to_string(i % 100) + "\n";
    const Workdir folder;
    const std::optional<ReadingPlan> plan = FindPlan(folder.Write("a.csv", text));
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->NamesLine, 9001U);
    EXPECT_EQ(plan->FirstLine, 9002U);
}

TEST(ReadingPlan, KnowsDeclaredMissingValues) {
    const std::optional<ReadingPlan> plan = FindPlan(
        SampleOf("Missing value: -9999\n\nt;n;v\n10:00:00;1;0.5\n10:00:01;-9999;-9999.00\n10:00:02;0;0.7\n"));
    ASSERT_TRUE(plan);
    for (const char16_t* cell : {u"-9999", u"-9999.0", u"-9999.000"})
        EXPECT_TRUE(plan->IsDeclaredMissing(cell));
    for (const char16_t* cell : {u"", u"9999", u"-999", u"x"}) EXPECT_FALSE(plan->IsDeclaredMissing(cell));
    EXPECT_EQ(plan->Columns[1].Type, ColumnType::Boolean);
}

// Cells that are told by the masks of their line are counted as each of them by its characters.
TEST(ReadingPlan, CountsAllCellsAlike) {
    const char* const texts[] = {
        "t;a;b;c\n10:00:00;1,5;-2;\n10:00:01;+3;0;0x1F\n10:00:02;1;x;20\n10:00:03;7,25;1,5 V;1e5\n",
        ("t;a;b;c\n10:00:00;1.5;-2;\n10:00:01;+3;0;1,5\n10:00:02;1.25;;20\n"
         "10:00:03;7.;12345678901234567890;.5\n"),
        "t,a,b\n10:00:00,\"1,5\",2\n10:00:01,\"2,25\",\"x \"\"y\"\"\"\n10:00:02,3, 4\n",
        "Missing value: -9\n\nt;n;v\n10:00:00;1;0.5\n10:00:01;-9;-9.0\n10:00:02;0;0.7\n"};
    for (const char* text : texts) {
        const std::optional<ReadingPlan> alone = FindPlan(SampleOf(text));
        ASSERT_TRUE(alone) << text;
        const FileSample sample = SampleOf(text);
        const std::optional<FoundTable> table = FindTable(sample);
        ASSERT_TRUE(table) << text;
        for (const ReadingPlan& plan : {*alone, PlanOf(sample, *table, &*alone)}) {
            EXPECT_EQ(plan.Mark, alone->Mark) << text;
            std::vector<CellCounts> counts(plan.Columns.size());
            for (const auto& row : plan.Rows.Cells) {
                for (std::size_t i = 0; i < row.size(); ++i)
                    counts[i].Add(plan.IsDeclaredMissing(row[i]) ? std::u16string_view() : row[i], plan.Mark);
            }
            for (std::size_t i = 0; i < counts.size(); ++i)
                EXPECT_TRUE(plan.Columns[i].Cells == counts[i]) << "column " << i + 1 << " of\n" << text;
        }
    }
}

TEST(ReadingPlan, KnowsATotalAtTheEnd) {
    struct TotalCase {
        const char* Text;
        bool EndsInTotal;
    };
    const TotalCase cases[] = {
        {"t;v\n2024-01-01;1\n2024-01-02;2\n2024-01-03;3\n2024-01-04;4\n2024-01-01;10\n", true},
        {"t;v\n2024-01-01;1\n2024-01-02;2\n2024-01-03;3\n2024-01-04;4\n2024-01-05;10\n", false},
        {"t;v\n2024-01-01;1\n2024-01-02;2\n2024-01-01;3\n2024-01-02;4\n2024-01-01;10\n", false},
        {"t;v\n2024-01-05;1\n2024-01-04;2\n2024-01-03;3\n2024-01-02;4\n2024-01-01;10\n", false},
    };
    for (const TotalCase& c : cases) {
        const std::optional<ReadingPlan> plan = FindPlan(SampleOf(c.Text));
        ASSERT_TRUE(plan) << c.Text;
        EXPECT_EQ(plan->EndsInTotal, c.EndsInTotal) << c.Text;
    }
}

struct PlanCase {
    const char* Text;
    const char* Plan;
};

// "Zeit time|Druck {bar} float", and the decimal mark.
std::string PlanInWords(const char* text) {
    const std::optional<ReadingPlan> plan = FindPlan(SampleOf(text));
    if (!plan) return "none";
    std::string words;
    for (const PlannedColumn& column : plan->Columns) {
        if (!words.empty()) words += "|";
        words += Utf16ToUtf8(column.Name) + " ";
        if (!column.Unit.empty()) words += "{" + Utf16ToUtf8(column.Unit) + "} ";
        words += column.IsTime ? "time" : TypeInWords(column.Type);
    }
    return words + " mark " + static_cast<char>(plan->Mark);
}

TEST(ReadingPlan, HoldsColumnsOfAllKinds) {
    const PlanCase cases[] = {
        {"", "none"},
        {"a text\nwithout a table\n", "none"},
        {"t;p [bar];n;s\n10:00:00;1,5;0;run\n10:00:01;1,6;5;stop\n10:00:02;1,7;1;run\n",
         "t time|p [bar] {bar} float|n integer|s text mark ,"},
        {"t,v\n10:00:00,1.528\n10:00:01,1.6\n10:00:02,1.75\n", "t time|v float mark ."},
        {"t,v\n10:00:00,\"12,71\"\n10:00:01,\"12,5\"\n10:00:02,\"13,25\"\n", "t time|v float mark ,"},
        {"t,v\n10:00:00,\"1,271\"\n10:00:01,\"12,500\"\n10:00:02,\"13,250\"\n", "t time|v integer mark ."},
        // A unit in each cell.
        {"t;U\n10:00:00;57,9 mV\n10:00:01;85,4 mV\n10:00:02;88,2 mV\n", "t time|U {mV} float mark ,"},
        // A column with a unit counts, though it is 0 and 1.
        {"t;I [A];on\n10:00:00;0;0\n10:00:01;1;1\n10:00:02;1;1\n",
         "t time|I [A] {A} integer|on boolean mark ."},
        // Thousands: the mark that both have between digits is the other one.
        {"t;v\n10:00:00;1.528,53\n10:00:01;1.600,00\n10:00:02;17,25\n", "t time|v float mark ,"},
        // Identifiers beside bytes.
        {"t;Id;B0\n10:00:00;5DC;38\n10:00:01;1A0;F9\n10:00:02;0C4;6E\n10:00:03;2BF;A1\n",
         "t time|Id hexadecimal|B0 hexadecimal mark ."},
        // Rows that are longer than most have columns, too.
        {"t;v\n10:00:00;1\n10:00:01;2\n10:00:01;2;7\n10:00:02;3\n10:00:03;4\n",
         "t time|v integer| integer mark ."},
    };
    for (const PlanCase& c : cases) EXPECT_EQ(PlanInWords(c.Text), c.Plan) << c.Text;
}

}  // namespace
