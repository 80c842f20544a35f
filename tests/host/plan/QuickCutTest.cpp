// What is cut and copied in few steps is what the plain way makes.
#include "host/plan/QuickCut.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "host/plan/CopyRow.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

std::string Joined(const std::vector<std::u16string_view>& cells) {
    std::string text;
    for (const std::u16string_view cell : cells) text += "<" + Utf16ToUtf8(cell) + ">";
    return text;
}

std::string Shown(CellLook look) {
    constexpr const char* Names[] = {"other", "decimal", "empty", "signed", "0", "1"};
    const auto index = static_cast<std::size_t>(look);
    const auto whole = static_cast<std::size_t>(CellLook::Whole);
    return index < whole ? Names[index] : std::to_string(index - whole) + " digits";
}

TEST(QuickCut, SeesWhatACellIs) {
    const struct {
        const char* Cell;
        const char* Look;
    } cases[] = {
        {"", "empty"},
        {"  ", "empty"},
        {"0", "0"},
        {"1", "1"},
        {"7", "1 digits"},
        {"00", "2 digits"},
        {" 123456789 ", "9 digits"},
        {"123456789012345678", "18 digits"},
        {"-5", "signed"},
        {"+0", "signed"},
        {"1,5", "decimal"},
        {"-0,25", "decimal"},
        {"12345678901234567890,5", "decimal"},
        // Looked at more closely.
        {"1234567890123456789", "other"},
        {"-1234567890123456789", "other"},
        {"1.5", "other"},
        {",5", "other"},
        {"-,5", "other"},
        {"5,", "other"},
        {"1,5,2", "other"},
        {"1-5", "other"},
        {"--5", "other"},
        {"-", "other"},
        {",", "other"},
        {"1e5", "other"},
        {"1 5", "other"},
        {"\xC4\xB0", "other"},  // its low byte is a zero's
        {"\xE2\x82\xAC", "other"},
    };
    for (const auto& c : cases) {
        for (const int before : {0, 55, 60, 63, 64, 120}) {
            SCOPED_TRACE("\"" + std::string(c.Cell) + "\" after " + std::to_string(before));
            QuickCut quick({u';', false, false}, u',');
            const std::u16string line =
                std::u16string(static_cast<std::size_t>(before), u'x') + u";" + Utf8ToUtf16(c.Cell) + u";9";
            ASSERT_TRUE(quick(line));
            ASSERT_EQ(quick.Cells().size(), 3u);
            EXPECT_EQ(Shown(quick.LookAt(1)), c.Look);
        }
    }
}

TEST(QuickCut, CutsQuotedCells) {
    const struct {
        const char16_t* Line;  // after some cell
        const char* Cells;
    } cases[] = {
        {u"\"a;b\";c", "<a;b><c>"},
        {u"\"\";c", "<><c>"},
        {u"c;\"\"", "<c><>"},
        {u"\" a ; b \"", "<a ; b>"},
        {u"\"a\";\"b;;\";\";\"", "<a><b;;><;>"},
        {u"\"1,5\";-7", "<1,5><-7>"},
        {u"\"a\" ;b", "<a><b>"},
        {u" \"a;b\";c", "<a;b><c>"},
        {u"5\";6\"", "<5\"><6\">"},
        {u"a\"b;c\"d", "<a\"b><c\"d>"},
        {u"\"x;y\";5\"", "<x;y><5\">"},
    };
    for (const auto& c : cases) {
        for (const std::size_t before : {0u, 1u, 57u, 58u, 59u, 60u, 61u, 62u, 63u, 120u, 125u, 126u, 127u}) {
            SCOPED_TRACE(Utf16ToUtf8(c.Line) + " after " + std::to_string(before));
            QuickCut quick({u';', false, false}, u',');
            const std::u16string line = std::u16string(before, u'x') + u";" + c.Line;
            ASSERT_TRUE(quick(line));
            EXPECT_EQ(Joined(quick.Cells()), "<" + std::string(before, 'x') + ">" + c.Cells);
            EXPECT_FALSE(quick.IsTight());
        }
    }
}

TEST(QuickCut, LeavesRareLinesToTheOtherWay) {
    const struct {
        Cut How;
        const char16_t* Line;
        bool IsTaken;
    } cases[] = {
        {{u';', false, false}, u"1;\"a;b\" ;\"\"", true}, {{u';', false, false}, u"5\";6\"", true},
        {{u';', false, false}, u"\"a\"\"b\"", false},     {{u';', false, false}, u"\"a", false},
        {{u';', false, false}, u"\"a\" b;c", false},      {{u';', false, true}, u"1;2", false},
        {{u'\0', false, false}, u"1;2", false},           {{u'\u2502', false, false}, u"1\u25022", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Line));
        QuickCut quick(c.How, u'.');
        EXPECT_EQ(quick(c.Line), c.IsTaken);
    }
}

// Cells of any kind with any separators between them.
class AnyLines {
  public:
    std::u16string Next(char16_t separator) {
        static const std::u16string Parts[] = {
            u"0",
            u"1",
            u"12",
            u"-7",
            u"1,5",
            u"2.25",
            u"-3,5",
            u"1.234,5",
            u"",
            u"",
            u" ",
            u"  4  ",
            u"\t",
            u"12345678901",
            u"\"6,5\"",
            u"\"a b\"",
            u"on",
            u"off",
            u"NaN",
            u"--",
            u"12,3 V",
            u"0x1F",
            u"2E",
            u"abc",
            u"1e5",
            u"Halle 3",
            u"\u00FC",
            u"\u20AC 5",
            u"\"x;y\"",
            u"\u0130",
            u"-999",
            u"-999,0",
            u"-1 V",
            u"0xD7E2D2",
            u"\"0xAB\"",
            u"5\"",
            u"\"a\"\"b\"",
            u"\"a",
            u"\"a\" b",
            u"\"a long text; with separators; in quotes, that fills more than one mask of a line\""};
        std::u16string line;
        const std::size_t count = Any(12);
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) line += std::u16string(Any(8) == 0 ? 2 : 1, separator);
            line += Parts[Any(std::size(Parts))];
        }
        return line;
    }

  private:
    std::size_t Any(std::size_t count) { return Random() % count; }

    std::mt19937 Random{7};
};

TEST(QuickCut, CutsAsLineCutterDoes) {
    const Cut cuts[] = {{u';', false, false}, {u'\t', false, false}, {u',', false, false},
                        {u' ', true, false},  {u';', true, false},   {u'\t', true, false}};
    AnyLines lines;
    for (const Cut& how : cuts) {
        QuickCut quick(how, u',');
        LineCutter plain(how);
        std::size_t taken = 0;
        for (int i = 0; i < 1500; ++i) {
            const std::u16string line = lines.Next(how.Separator);
            if (!quick(line)) continue;
            ++taken;
            ASSERT_EQ(Joined(quick.Cells()), Joined(plain(line))) << Utf16ToUtf8(line);
        }
        EXPECT_GT(taken, 700u) << static_cast<int>(how.Separator);
    }
}

struct CopiedRows {
    std::vector<std::string> Rows;
    CopyResult Result;
};

// Twice the same lines, by the way of QuickCut where it takes them, or by the other one.
CopiedRows CopyOf(const ReadingPlan& plan, CopyLayout layout, bool isQuick) {
    std::vector<ColumnType> types;
    for (const PlannedColumn& column : plan.Columns) types.push_back(column.Type);
    RowCopier copier(plan, layout, types);
    QuickCut quick(plan.How, plan.Mark);
    LineCutter plain(plan.How);
    AnyLines lines;
    CopiedRows copied;
    for (int i = 0; i < 1500; ++i) {
        const std::u16string line = lines.Next(plan.How.Separator);
        CopyLine row;
        row.Kind = CopyLineKind::Row;
        row.Quick = isQuick && quick(line) ? &quick : nullptr;
        row.Cells = row.Quick != nullptr ? &quick.Cells() : &plain(line);
        copied.Rows.emplace_back(copier.TextOf(row));
    }
    copier.Report(copied.Result);
    return copied;
}

TEST(QuickCut, GivesTheRowsOfThePlainWay) {
    const struct {
        Cut How;
        char16_t Mark;
        const char16_t* Missing;
        std::vector<ColumnType> Types;
        std::size_t TimeColumn;
    } cases[] = {
        {{u';', false, false}, u',', u"", {ColumnType::Float, ColumnType::Float, ColumnType::Text}, 0},
        {{u';', false, false}, u'.', u"", {ColumnType::Float, ColumnType::Text, ColumnType::Boolean}, 1},
        {{u'\t', false, false},
         u',',
         u"",
         {ColumnType::Integer, ColumnType::Character, ColumnType::Float},
         2},
        {{u' ', true, false}, u'.', u"", {ColumnType::Float, ColumnType::Hexadecimal, ColumnType::Float}, 1},
        {{u';', false, false}, u',', u"-999", {ColumnType::Float, ColumnType::Text, ColumnType::Float}, 0},
        {{u',', false, false}, u'.', u"", {ColumnType::Float}, 1},
    };
    for (const auto& c : cases) {
        ReadingPlan plan;
        plan.How = c.How;
        plan.Mark = c.Mark;
        plan.Missing = c.Missing;
        for (const ColumnType type : c.Types) plan.Columns.push_back({u"", u"V", type, false, false});
        if (c.TimeColumn < plan.Columns.size()) plan.Columns[c.TimeColumn].IsTime = true;
        for (const CopyLayout layout : {CopyLayout::InPlace, CopyLayout::ForPeople}) {
            SCOPED_TRACE(&c - cases);
            const CopiedRows quick = CopyOf(plan, layout, true);
            const CopiedRows plain = CopyOf(plan, layout, false);
            for (std::size_t i = 0; i < plain.Rows.size(); ++i) ASSERT_EQ(quick.Rows[i], plain.Rows[i]);
            EXPECT_TRUE(quick.Result.Cells == plain.Result.Cells);
            EXPECT_EQ(quick.Result.Types, plain.Result.Types);
            EXPECT_EQ(quick.Result.Changes.Values, plain.Result.Changes.Values);
            EXPECT_EQ(quick.Result.Changes.Missing, plain.Result.Changes.Missing);
            EXPECT_EQ(quick.Result.Changes.ExtraCells, plain.Result.Changes.ExtraCells);
        }
    }
}

}  // namespace
