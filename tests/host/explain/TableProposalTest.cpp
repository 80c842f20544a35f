// The table that a person would see: how rows look, and which rows are proposed.
#include <gtest/gtest.h>

#include "host/explain/Explanation.h"
#include "host/explain/RowShape.h"
#include "host/sidecar/Sidecars.h"
#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

using kelvarin::explain::CellKind;
using kelvarin::explain::ProposeTable;
using kelvarin::explain::RowShape;
using kelvarin::explain::TableProposal;

struct KindCase {
    const char* Cell;
    CellKind Kind;
};

TEST(ExplainRowShape, TellsCellsApart) {
    const KindCase cases[] = {
        {"", CellKind::Empty},       {"n/a", CellKind::Empty},   {"?", CellKind::Empty},
        {"inf", CellKind::Empty},    {"5", CellKind::Number},    {"-1.5e3", CellKind::Number},
        {"1,5", CellKind::Number},   {"true", CellKind::Number}, {"2024-01-31", CellKind::Digits},
        {"10:00", CellKind::Digits}, {"5 mV", CellKind::Digits}, {"> 5", CellKind::Digits},
        {"A7", CellKind::Digits},    {"face", CellKind::Word},   {"volts", CellKind::Word},
        {"#7", CellKind::Word},      {"1,2,3", CellKind::Word},  {"m/s", CellKind::Word},
    };
    const Workdir folder;
    for (const KindCase& c : cases) {
        const auto filter = HostModule().MakeFilter(folder.Write("c.csv", std::string("x;") + c.Cell));
        std::vector<CutLine> lines;
        std::string reason;
        ASSERT_TRUE(
            filter->Find<ITableReader>()->CutLines({.Separator = u';', .MostLines = 1}, lines, reason));
        EXPECT_EQ(RowShape(lines.at(0)).Kind(1), c.Kind) << c.Cell;
    }
}

std::string Rows(int count, const std::string& row) {
    std::string rows;
    for (int i = 0; i < count; ++i) rows += std::to_string(i) + row + "\n";
    return rows;
}

struct PlaceCase {
    std::string File;
    int Separator;
    int FirstLine;
    bool Header;
    std::size_t Rows;
    std::size_t Cells;
};

TEST(ExplainTableProposal, FindsTheRowsOfMostValue) {
    const PlaceCase cases[] = {
        // Each separator, with names and without.
        {"t;v\n" + Rows(9, ";1"), 0, 1, true, 9, 2},
        {"t,v\n" + Rows(9, ",1"), 1, 1, true, 9, 2},
        {"t\tv\n" + Rows(9, "\t1"), 2, 1, true, 9, 2},
        {"t v\n" + Rows(9, "   1"), 3, 1, true, 9, 2},
        {Rows(9, ";1"), 0, 1, false, 9, 2},
        // A preamble, also one that looks like a row, and a footer.
        {"Logger 7\nStart 12\n\nt;v\n" + Rows(9, ";1"), 0, 4, true, 9, 2},
        {"1;5\nname;x\nunit;y\nt;v\n" + Rows(9, ";1"), 0, 4, true, 9, 2},
        {"t;v\n" + Rows(9, ";1") + "end of data\n", 0, 1, true, 9, 2},
        {"t;v\n" + Rows(3, ";1") + "sum\n", 0, 1, true, 3, 2},
        // Comments and blank lines among the rows.
        {"t;v\n" + Rows(9, ";1") + "# restarted\n\n" + Rows(9, ";1"), 0, 1, true, 18, 2},
        // Decimal commas are cells of no comma table.
        {"t;v;w\n" + Rows(9, ";1,5;2,5"), 0, 1, true, 9, 3},
        {"t\tv\n" + Rows(9, ",5\t1,5"), 2, 1, true, 9, 2},
        // Units between names and rows: the line directly above the rows is the header for the module.
        {"t;v\ns;V\n" + Rows(9, ";1"), 0, 2, true, 9, 2},
        // A header with fewer cells than the rows would lose one.
        {"t;v\n" + Rows(9, ";1;2"), 0, 2, false, 9, 3},
        // Rows with missing values.
        {"t;v\n" + Rows(9, ";?"), 0, 1, true, 9, 2},
        // One column only where nothing else is a table.
        {"n\n" + Rows(9, ""), 0, 1, true, 9, 1},
        // Columns that end earlier leave shorter rows.
        {"t;v;w\n" + Rows(3, ";1;2") + Rows(30, ";1"), 0, 1, true, 30, 3},
    };
    const Workdir folder;
    for (const PlaceCase& c : cases) {
        SCOPED_TRACE(c.File);
        const std::optional<TableProposal> table = ProposeTable(HostModule(), folder.Write("a.csv", c.File));
        ASSERT_TRUE(table);
        EXPECT_EQ(table->Format.Separator, c.Separator);
        EXPECT_EQ(table->Format.FirstLine, c.FirstLine);
        EXPECT_EQ(table->Format.Header, c.Header);
        EXPECT_EQ(table->Rows, c.Rows);
        EXPECT_EQ(table->Cells, c.Cells);
    }
}

struct NamesCase {
    std::string File;
    int Line;
    const char16_t* Names;
    bool AreLost;
};

TEST(ExplainTableProposal, FindsTheNames) {
    const NamesCase cases[] = {
        {"t;v\n" + Rows(9, ";1"), 1, u"t, v", false},
        {"time;speed;temp\n;m/s;m/s\n" + Rows(9, ";1;2"), 1, u"time, speed, temp", true},
        {"t;v\n\n" + Rows(9, ";1"), 1, u"t, v", true},
        {"t;v\n\n\nx\n\n" + Rows(9, ";1"), 4, u"x", true},  // not beyond the next gap
        {Rows(9, ";1"), 0, u"", false},
    };
    const Workdir folder;
    for (const NamesCase& c : cases) {
        SCOPED_TRACE(c.File);
        const std::optional<TableProposal> table = ProposeTable(HostModule(), folder.Write("a.csv", c.File));
        ASSERT_TRUE(table);
        EXPECT_EQ(table->NamesLine, c.Line);
        EXPECT_EQ(Utf16ToUtf8(table->Names), Utf16ToUtf8(c.Names));
        EXPECT_EQ(table->NamesAreLost(), c.AreLost);
    }
}

TEST(ExplainTableProposal, LooksAtTheFirst500Lines) {
    const Workdir folder;
    const auto table = ProposeTable(HostModule(), folder.Write("a.csv", "t;v\n" + Rows(600, ";1")));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->Rows, 499u);
    EXPECT_EQ(table->LastLine, 500);
}

TEST(ExplainTableProposal, HasNoneWithoutValuesOrUnderASidecar) {
    const Workdir folder;
    for (const char* const text : {"", "\n\n", "some\nwords\n", "a;b\nc;d\n"}) {
        EXPECT_FALSE(ProposeTable(HostModule(), folder.Write("a.csv", text))) << text;
    }
    EXPECT_FALSE(ProposeTable(HostModule(), folder.Path("absent.csv")));
    const std::u16string path = folder.Write("b.csv", "t;v\n" + Rows(9, ";1"));
    EXPECT_TRUE(ProposeTable(HostModule(), path));
    ASSERT_EQ(kelvarin::sidecar::WriteSidecar(HostModule(), path), "");
    EXPECT_FALSE(ProposeTable(HostModule(), path));
    folder.Write("b.csv.info", "broken");
    EXPECT_TRUE(ProposeTable(HostModule(), path)) << "a sidecar with errors settles nothing";
}

}  // namespace
