// What an explanation says of whole files, read by the built module: reasons, warnings and what to do.
#include <gtest/gtest.h>

#include "host/explain/Explanation.h"
#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

using kelvarin::explain::AnalysisRecord;
using kelvarin::explain::Explanation;
using kelvarin::explain::Warning;
using Settings = kelvarin::SettingList;

// A file, its analysis and what is explained about it.
class Explained {
  public:
    explicit Explained(const std::string& text) {
        const std::u16string path = Folder.Write("a.csv", text);
        const auto filter = HostModule().MakeFilter(path);
        EXPECT_TRUE(Record.ListenTo(*filter));
        EXPECT_TRUE(filter->AnalyzeFile());
        All.emplace(kelvarin::explain::Explain(HostModule(), path, *filter, Record));
    }
    const Explanation& operator*() const { return *All; }
    const Explanation* operator->() const { return &*All; }

    const Workdir Folder;
    AnalysisRecord Record;

  private:
    std::optional<Explanation> All;
};

std::string Rows(int count, const std::string& row) {
    std::string rows;
    for (int i = 0; i < count; ++i) rows += std::to_string(i) + row + "\n";
    return rows;
}

// Separator, first line and header of the settings that take another table, "copy" where none do, or nothing.
std::string OtherTable(const Explanation& explanation) {
    if (!explanation.IsOtherTable) return {};
    if (explanation.NeedsCopy) return "copy";
    std::string words;
    for (const auto& [key, value] : explanation.Advised) {
        if (key == "Separator" || key == "FirstLine" || key == "ImportHeader")
            words += (words.empty() ? "" : " ") + value;
    }
    return words;
}

struct WarningCase {
    std::string File;
    std::vector<std::string> Kinds;
    const char* Advised;
};

TEST(Explanation, WarnsAndAdvises) {
    const WarningCase cases[] = {
        {"t;v\n" + Rows(9, ";1.5"), {}, ""},
        {"Lower,325\nUpper,480\n,,\nnm,A,T\n" + Rows(9, ",2.3,0.4"), {}, ""},
        {"n\n" + Rows(9, ""), {}, "4 1 1"},
        {"t,v\n" + Rows(9, ",1.5") + "end\n", {"late-line-moves-the-table"}, "1 1 1"},
        {"t,v\n" + Rows(9, ",1.5") + "\nv: volts; measured\n", {"late-line-moves-the-table"}, "1 1 1"},
        {"t,v\n" + Rows(9, ",1.5") + "# note\n" + Rows(40, ",1.5"), {"late-line-moves-the-table"}, "copy"},
        {"it's;a;b\n" + Rows(9, ";4;5"), {"quote-hides-separators", "names-skipped"}, "0 1 1"},
        {"x,1\ntime,voltage\n" + Rows(9, ",1.5"), {"preamble-taken-for-data"}, "1 2 1"},
        {"t;u;p;q;r\n" + Rows(9, ";;x;x;x"), {"names-taken-for-data"}, "0 1 1"},
        {"t,v\n" + Rows(9, ",1.5,"), {"names-skipped"}, "1 1 1"},
        {"t;v\n\n" + Rows(9, ";1.5"), {"empty-line-ends-the-table", "names-not-above-the-data"}, "0 3 0"},
        {"t;v\n" + Rows(9, ";1") + "\n" + Rows(9, ";2"), {"empty-line-ends-the-table"}, ""},
        {"t;v\nTS;m\n;Avg\n" + Rows(9, ";1.5"), {"names-not-above-the-data"}, "0 4 0"},
        {"t;v\n" + Rows(120, ";1") + "0;1;7\n", {"more-cells-than-columns"}, ""},
        {"t;v\n" + Rows(120, ";1") + "0;1;\n", {}, ""},
        {"t;v\n0;\n1;\n" + Rows(9, ";2"), {"text-because-of-empty-cells"}, ""},
        {"t;v\n0;5\n1;\n" + Rows(9, ";2"), {}, ""},
        {"t;v\n" + Rows(9, ";1.5") + "\n", {}, ""},
        {"t;v\n" + Rows(3, ";1,234"), {"thousands-read-as-decimals"}, ""},
        {"t;v;w\n" + Rows(3, ";1.234;2,5"), {"thousands-read-as-decimals"}, ""},
        {"t;v;w\n" + Rows(3, ";0,234;1e5") + "0;1,2;1ea\n", {}, ""},
    };
    for (const WarningCase& c : cases) {
        SCOPED_TRACE(c.File);
        const Explained file(c.File);
        std::vector<std::string> kinds;
        for (const Warning& warning : file->Warnings) kinds.push_back(warning.Kind);
        EXPECT_EQ(kinds, c.Kinds);
        EXPECT_EQ(OtherTable(*file), c.Advised);
    }
}

struct RemedyCase {
    std::string File;
    std::string Text;
    std::string Remedy;
    bool HasSettings;
    int Type = CsvTypeUndefined;  // of the columns that the remedy sets
};

TEST(Explanation, SaysWhatHappenedAndWhatToDo) {
    const RemedyCase cases[] = {
        {"t,v\n" + Rows(9, ",1.5") + "# note\n" + Rows(40, ",1.5"),
         "The lines from 2 on look like the table's, but line 11 has another count of the separator comma, "
         "0: "
         "\"# note\". One such line among the first hundred moves the table's beginning below, here to line "
         "12.",
         "", false},
        {"x,1\ntime,voltage\n" + Rows(9, ",1.5"),
         "Line 1 has enough numbers to count as data, but the table seems to begin in line 3: \"x,1\".", "",
         true},
        {"t;v\n" + Rows(9, ";1") + "\n" + Rows(9, ";2"),
         "Line 11 is empty and ends the analysis: the types are settled by the 9 rows above it alone. The "
         "import itself goes on after it.",
         "", false},
        {"t;v\n\n" + Rows(9, ";1.5"),
         "Line 2 is empty and ends the analysis before the first row of data, so "
         "no column gets a type.",
         "", true},
        {"t;v\nTS;m\n;Avg\n" + Rows(9, ";1.5"),
         "The names seem to be in line 1, but they are taken only from the line directly above the first "
         "row, "
         "4: \"t, v\".",
         "No setting takes them; a clean copy has them directly above", false},
        {"t;v\n" + Rows(120, ";1") + "0;1;7\n0;1;8\n",
         "2 rows have more than the 2 cells of the table's first line; the surplus is not imported, first "
         "\"7\" in line 122.",
         "A clean copy has a column for them", false},
        {"t;v\n0;1e5\n1;2e5\n",
         "In column 2 \"v\", \"1e5\" in line 2 is read as a hexadecimal number, since an exponent without a "
         "decimal mark is one as well.",
         "Choose the type of floats", false, CsvTypeFloat},
        {"t;v;w\n0;1,234;5,678\n",
         "In column 2 \"v\", \"1,234\" in line 2 is read as 1.234, not as thousands. The same holds for "
         "columns "
         "3.",
         "If thousands are meant, remove the marks from the file; a lone mark is always a decimal mark in a "
         "column of floats.",
         false},
        {"t;v\n0;\n1;\n" + Rows(9, ";2"),
         "Text only because its first rows are empty: column 2 \"v\"; from line 4 on it is of type integer.",
         "Choose its type; its empty cells then become samples without value", false, CsvTypeInteger},
    };
    for (const RemedyCase& c : cases) {
        SCOPED_TRACE(c.File);
        const Explained file(c.File);
        ASSERT_FALSE(file->Warnings.empty());
        const Warning& warning = file->Warnings.front();
        EXPECT_EQ(warning.Text, c.Text);
        EXPECT_EQ(warning.Remedy.Text, c.Remedy);
        EXPECT_EQ(warning.Remedy.Settings, c.HasSettings ? file->Advised : Settings());
        EXPECT_EQ(warning.Remedy.Columns.empty() ? 0 : warning.Remedy.Columns[0].Type, c.Type);
    }
}

TEST(Explanation, TakesAMarkForThousandsOnlyWhereItMayBe) {
    const std::pair<const char*, bool> cases[] = {
        {"1,234", true},     {"-12,345", true}, {"+123,456", true}, {"0,234", false},
        {"1234,567", false}, {"1,2345", false}, {"1,23", false},    {"1.234", false},
    };
    for (const auto& [cell, isWarned] : cases) {
        const Explained file(std::string("t;v\n0;") + cell + "\n1;" + cell + "\n");
        EXPECT_EQ(!file->Warnings.empty(), isWarned) << cell;
    }
}

struct ReasonCase {
    const char* Cells;  // of a column, one a line
    int Type;
    const char* Reason;
};

TEST(ColumnReason, NamesTheCellThatSettledTheType) {
    const ReasonCase cases[] = {
        {"0\n1\n0\n", CsvTypeBoolean, "each of the 3 cells fits"},
        {"1\n2\n3\n", CsvTypeInteger, "\"2\" in line 3 is no boolean"},
        {"1\n1.5\n", CsvTypeFloat, "\"1.5\" in line 3 is no integer"},
        {"1\n1e5\n", CsvTypeHex, "\"1e5\" in line 3 is no integer"},
        {"5 V\n6 V\n", CsvTypeIntegerUnit, "\"5 V\" in line 2 is no integer"},
        {"5 V\n1.5 V\n", CsvTypeFloatUnit, "\"1.5 V\" in line 3 is no integer with unit"},
        {"on\noff\n", CsvTypeString, "\"on\" in line 2 fits no other type"},
        {"1\nx y\n3\n4\n", CsvTypeString, "because of \"x y\" in line 3 among 3 of type integer"},
        {"1\nx y\n3\nz z\n5\n", CsvTypeString,
         "because of 2 other cells among 3 of type integer, first \"x y\" in line 3"},
    };
    for (const ReasonCase& c : cases) {
        SCOPED_TRACE(c.Cells);
        std::string text = "t;v\n";
        for (const char cell : std::string_view(c.Cells))
            text += text.back() == '\n' ? std::string("0;") + cell : std::string(1, cell);
        const Explained file(text);
        const kelvarin::explain::ColumnReason reason = ReasonFor(file.Record, 1);
        EXPECT_EQ(reason.Type, c.Type);
        EXPECT_EQ(ReasonInWords(reason), c.Reason);
    }
}

TEST(ColumnReason, CountsEmptyCells) {
    const std::pair<std::string, const char*> cases[] = {
        {"t;v\n0;\n", "since its only cell is empty"},
        {"t;v\n0;\n1;\n", "since each of the 2 cells is empty"},
        {"t;v\n0;5\n1;\n2;6\n", "because of one empty cell, in line 3, among 2 of type integer"},
        {"t;v\n0;5\n1;\n2;6\n3;\n", "because of 2 empty cells among 2 of type integer, first in line 3"},
        {"t;v\n0;5\n1;\n2;6\n3;x y\n4;7\n",
         "because of 1 empty cells (first in line 3) and 1 others (first \"x y\" in line 5) among 3 of type "
         "integer"},
        {"t;v\n0;x y\n1;\n", "\"x y\" in line 2 fits no other type, and 1 of 2 cells are empty"},
    };
    for (const auto& [text, words] : cases) {
        const Explained file(text);
        EXPECT_EQ(ReasonInWords(kelvarin::explain::ReasonFor(file.Record, 1)), words) << text;
    }
}

struct FormatCase {
    std::string File;
    std::vector<std::string> Reasons;
    std::string RunnerUp;
    std::string RowsRead;
};

TEST(Explanation, SaysWhySeparatorAndHeaderWereTaken) {
    const FormatCase cases[] = {
        {"bench 7\nt;v\n0;1.5\n1;2.5\n",
         {"The semicolon is regular from the earliest line on: each line from 2 to 4 has one semicolon, "
          "while "
          "line 1 has 0.",
          "Line 3 is the first with enough numbers for data (2 of 2 cells, 1 needed), so line 2 above it is "
          "the header: \"t;v\"."},
         "none, no other separator occurs in line 4, the last one looked at",
         "2 rows, lines 3 to 4; there the file ends"},
        {"0;1,5\n1;2,5\n\n3;4,5\n",
         {"The semicolon is as regular as another one and comes before it in the order: each line from 1 to "
          "4 "
          "has one semicolon.",
          "Line 1 has enough numbers for data (2 of 2 cells, 1 needed), so there is no header: \"0;1,5\"."},
         "comma: each line from 1 to 4 has one comma; it would give 2 columns from line 1 on",
         "2 rows, lines 1 to 2; line 3 is empty and ends the analysis"},
        {"one;x\ntwo;y\n",
         {"The semicolon is regular from the earliest line on: each line from 1 to 2 has one semicolon.",
          "None of the lines 1 to 2 has enough numbers for data (the best, line 1: 0 of 2 cells, 1 needed), "
          "so the table begins there without a header."},
         "none, no other separator occurs in line 2, the last one looked at",
         "2 rows, lines 1 to 2; there the file ends"},
        {"0;1\nend\n",
         {"No separator is regular up to the end (line 2, the last one looked at, has no semicolon), so the "
          "first in the order is taken.",
          "Line 2 has not enough numbers for data (0 of 1 cells, 1 needed) and none follows, so the table "
          "begins there without a header."},
         "none, no other separator occurs in line 2, the last one looked at",
         "one row, line 2; there the file ends"},
    };
    for (const FormatCase& c : cases) {
        SCOPED_TRACE(c.File);
        const Explained file(c.File);
        EXPECT_EQ(FormatReasons(*file), c.Reasons);
        EXPECT_EQ(kelvarin::explain::RunnerUp(file.Record), c.RunnerUp);
        EXPECT_EQ(kelvarin::explain::RowsRead(file.Record), c.RowsRead);
    }
}

}  // namespace
