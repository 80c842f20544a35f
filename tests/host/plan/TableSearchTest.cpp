// The table of short files, as devices print them.
#include "host/plan/TableSearch.h"

#include <gtest/gtest.h>

#include <span>
#include <string>

#include "host/plan/PlanKit.h"

namespace {

using namespace kelvarin::plan;

// "; 3 columns from line 2, 4 rows", or "none".
std::string TableInWords(const char* text, const FixedTable& fixed = {}) {
    const FileSample sample = SampleOf(text);
    const std::optional<FoundTable> table = FindTable(sample, fixed);
    if (!table) return "none";
    const char16_t separator = table->How.Separator;
    std::string name(1, static_cast<char>(separator));
    if (separator == u'\t') name = "tab";
    if (separator == u' ') name = "blank";
    if (separator == u'\0') name = "nothing";
    if (table->How.IsLineQuoted) name += " in quotes";
    return name + ", " + std::to_string(table->Width) + " columns from line " +
           std::to_string(table->First + 1) + ", " + std::to_string(table->Rows) + " rows";
}

struct TableCase {
    const char* Text;
    const char* Table;
};

void CheckTables(std::span<const TableCase> cases) {
    for (const TableCase& c : cases) EXPECT_EQ(TableInWords(c.Text), c.Table) << c.Text;
}

TEST(PlanTable, IsFoundWithEachSeparator) {
    const TableCase cases[] = {
        {"t;v\n1;2\n2;3\n3;4\n", ";, 2 columns from line 2, 3 rows"},
        {"t,v\n1,2.5\n2,3.5\n3,4.5\n", ",, 2 columns from line 2, 3 rows"},
        {"t\tv\n1\t2,5\n2\t3,5\n3\t4,5\n", "tab, 2 columns from line 2, 3 rows"},
        {"t|v\n1|2\n2|3\n3|4\n", "|, 2 columns from line 2, 3 rows"},
        {"t   v\n1   2.5\n2   3.5\n3  14.5\n", "blank, 2 columns from line 2, 3 rows"},
        {"t:v:w\n1:2.5:7\n2:3.5:8\n3:4.5:9\n", ":, 3 columns from line 2, 3 rows"},
        {"v\n1.5\n2.5\n3.5\n", "nothing, 1 columns from line 2, 3 rows"},
        {"\"t,v,w\"\n\"1,2,3\"\n\"2,3,4\"\n\"3,4,5\"\n", ", in quotes, 3 columns from line 2, 3 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, BeginsAtItsOddFirstRowAndBelowALineOfNumbers) {
    const TableCase cases[] = {
        {"Nr,Time,T,Serial\n1,2024-03-07 10:00:00,1.5,4711\n2,2024-03-07 10:01:00,1.6\n"
         "3,2024-03-07 10:02:00,1.7\n4,2024-03-07 10:03:00,1.8\n",
         ",, 3 columns from line 2, 3 rows"},
        {"7999,CA,-8.0\nDate,Sun,Wind\n01/01/1988 01:00,22,6.0\n01/01/1988 02:00,0,4.8\n"
         "01/01/1988 03:00,0,3.6\n01/01/1988 04:00,0,3.6\n01/01/1988 05:00,0,3.6\n",
         ",, 3 columns from line 3, 5 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, IsNotCutWithinItsValues) {
    const TableCase cases[] = {
        // Decimal commas.
        {"t;v\n1;2,5\n2;3,5\n3;4,5\n", ";, 2 columns from line 2, 3 rows"},
        {"1,5;2,5;3,5\n1,6;2,6;3,6\n1,7;2,7;3,7\n", ";, 3 columns from line 1, 3 rows"},
        // Blanks and colons of times.
        {"31.01.2024 10:00:00;1\n31.01.2024 10:00:01;2\n31.01.2024 10:00:02;3\n",
         ";, 2 columns from line 1, 3 rows"},
        {"10:00:00,1\n10:00:01,2\n10:00:02,3\n", ",, 2 columns from line 1, 3 rows"},
        {"10:00:00;1\n10:00:01;2\n10:00:02;3\n10:00:03;4\n\n10:01:00;1;5\n10:01:01;2;5\n10:01:02;3;5\n",
         ";, 3 columns from line 6, 3 rows"},
        {"10:00:00:1.5\n10:00:01:2.5\n10:00:02:3.5\n", ":, 4 columns from line 1, 3 rows"},
        // Commas in quotes.
        {"t,v\n\"1,5\",\"2,5\"\n\"1,6\",\"2,6\"\n\"1,7\",\"2,7\"\n", ",, 2 columns from line 2, 3 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, BeginsBelowWhatIsAboveIt) {
    const TableCase cases[] = {
        {"Logger 7;\nSerial;4711\nDate;01.02.2024\n\nt;v;w\ns;V;A\n0;1,5;2\n1;1,6;2\n2;1,7;3\n3;1,8;3\n",
         ";, 3 columns from line 7, 4 rows"},
        // Numbers above, in lines of another width.
        {"Rate: 10 Hz\n1,2\nt,v,w\n0,1.5,2\n1,1.6,2\n2,1.7,3\n", ",, 3 columns from line 4, 3 rows"},
        // Blank lines below the header.
        {"t;v\n\n\n1;2\n2;3\n3;4\n", ";, 2 columns from line 4, 3 rows"},
        // Identifiers and factors above kinds of values.
        {"Time,p,T\ns,bar,K\n0,101,102\n1.0,0.1,0.1\nREAL64,REAL32,INT16\n\n0,14.4,44\n1,39.8,61\n2,15.9,75\n"
         "3,15.9,75\n4,15.9,75\n",
         ",, 3 columns from line 7, 5 rows"},
        // Rows of numbers for each column among the names.
        {"Name;A;B\nOffset;0;0\nZeit;V;V\n0;1;2\n1;3;4\n2;5;6\n3;5;6\n", ";, 3 columns from line 4, 4 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, HoldsRowsThatAreNotWhole) {
    const TableCase cases[] = {
        // Missing cells, and words for them.
        {"t;v;w\n1;;3\n2;3;\n3;n/a;5\n4;5;6\n", ";, 3 columns from line 2, 4 rows"},
        // A footer.
        {"t;v\n1;2\n2;3\n3;4\n4;5\nEnd of file\n", ";, 2 columns from line 2, 4 rows"},
        // Words between the rows.
        {"t;v\n1;2\n2;3\nPause;\n3;4\n4;5\n5;6\n6;7\n", ";, 2 columns from line 2, 6 rows"},
        // Texts beside the values.
        {"t;state\n1;run\n2;run\n3;stop\n", ";, 2 columns from line 2, 3 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, IsTheLargestOfSeveral) {
    const TableCase cases[] = {
        {"Channel;Factor\nA;2,5\nB;3,5\n\nt;A;B;C\n0;1,5;2,5;1\n1;1,6;2,6;1\n2;1,7;2,7;1\n3;1,8;2,8;1\n",
         ";, 4 columns from line 6, 4 rows"},
    };
    CheckTables(cases);
}

TEST(PlanTable, IsNotInATextWithoutValues) {
    const TableCase cases[] = {{"", "none"},
                               {"\n\n\n", "none"},
                               {"To be done\nby the others\n", "none"},
                               {"a;b\nc;d\ne;f\n", "none"}};
    CheckTables(cases);
}

struct FixedCase {
    const char* Text;
    FixedTable Fixed;
    const char* Table;
};

// What is fixed stays, and the rest is found.
TEST(PlanTable, IsFoundUnderWhatIsFixed) {
    const char* const two = "a;b\n1;2\n2;3\n3;4\n\nt;u;v\n0;1;2\n1;2;3\n2;3;4\n3;4;5\n4;5;6\n";
    const char* const commas = "t,v;w\n1,5;2\n2,5;3\n3,5;4\n";
    const FixedCase cases[] = {
        {two, {}, ";, 3 columns from line 7, 5 rows"},
        // By its first line, that of the names or of the rows.
        {two, {{}, {}, 1, {}}, ";, 2 columns from line 2, 3 rows"},
        {two, {{}, {}, 6, {}}, ";, 3 columns from line 7, 5 rows"},
        {two, {{}, {}, 7, true}, ";, 3 columns from line 8, 4 rows"},
        {two, {{}, {}, 8, false}, ";, 3 columns from line 8, 4 rows"},
        {two, {{}, {}, 99, {}}, "none"},
        // By the separator.
        {commas, {}, ";, 2 columns from line 2, 3 rows"},
        {commas, {u',', {}, 0, {}}, ",, 2 columns from line 2, 3 rows"},
        {commas, {u'\t', {}, 0, {}}, "none"},
        {"v\n1.5\n2.5\n3.5\n", {u'\t', {}, 0, {}}, "tab, 1 columns from line 2, 3 rows"},
        {"v\n1.5 A\n2.5 A\n3.5 A\n", {u'\0', {}, 0, {}}, "nothing, 1 columns from line 2, 3 rows"},
        {"t;;v\n1;;2\n2;;3\n3;;4\n", {{}, true, 0, {}}, ";, 2 columns from line 2, 3 rows"},
    };
    for (const FixedCase& c : cases) EXPECT_EQ(TableInWords(c.Text, c.Fixed), c.Table) << c.Text;
}

}  // namespace
