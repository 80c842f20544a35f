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

// Cells of any kind with any separators between them, at any place of the line.
class AnyLines {
  public:
    std::u16string Next(char16_t separator) {
        constexpr std::size_t Plain = 12;  // parts that most cells are
        static const std::u16string parts[] = {
            u"0", u"1", u"7", u"12", u"-7", u"1,5", u"-3,5", u"2,25", u"", u"  4  ", u"3 ", u"\"6,5\"", u"00",
            u"+5", u"2.25", u"1.234,5", u",5", u"5,", u"-,5", u"1,5,2", u"1-5", u"--5", u"-",
            u"123456789012345678", u"1234567890123456789", u"-999", u"-999,0", u"", u" ", u"\t", u"\"\"",
            u"\"a b\"", u"on", u"off", u"NaN", u"--", u"abc", u"1e5", u"Halle 3", u"\u00FC", u"\u20AC 5",
            u"\u0130", u"\"x;y\"", u"\" a ; b \"", u"5\"", u"a\"b", u"\"a\"\"b\"", u"\"a", u"\"a\" b",
            u"\"a long text; with separators; in quotes, that fills more than one mask of a line\"",
            // Amounts of several units, and what looks like them.
            u"12,3 V", u"-1 V", u"+5 V", u"5V", u"7 V", u"5  V", u"5,V", u"5 mV", u"V", u" V", u"-V",
            u"NaN V", u"5 A", u"5A", u"12A", u"-5 A", u"5 E3", u"5E3", u"0 x1", u"0x1", u"1'000 V",
            // Hexadecimal numbers.
            u"0x1F", u"0x3f", u"0xABC", u"0xD7E2D2", u"0x00000001", u"0xFEDCBA9876543210", u"0x", u"0xG",
            u"0x12345678901234567", u"\"0xAB\"", u"2E"};
        std::u16string line = Any(4) != 0 ? u"" : std::u16string(Any(70), u'x') + separator;
        const std::size_t count = Any(12);
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) line += std::u16string(Any(8) == 0 ? 2 : 1, separator);
            line += parts[Any(Any(2) == 0 ? Plain : std::size(parts))];
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
        EXPECT_GT(taken, 600u) << static_cast<int>(how.Separator);
    }
}

// Quotes and blanks at each place of a mask.
TEST(QuickCut, CutsAsLineCutterDoesAtEachPlace) {
    constexpr Cut how{u';', false, false};
    QuickCut quick(how, u',');
    LineCutter plain(how);
    for (std::size_t before = 0; before < 130; ++before) {
        for (const char16_t* const rest : {u"\"a;b\";c", u"\"a\" b;c", u" \"a;b\" ;c", u"c;\"\"", u"5\";6\"",
                                           u"\"a\"\"b\";c", u" a ; b "}) {
            const std::u16string line = std::u16string(before, u'x') + u";" + rest;
            if (quick(line)) {
                EXPECT_EQ(Joined(quick.Cells()), Joined(plain(line))) << Utf16ToUtf8(line);
            }
        }
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
    constexpr ColumnType Float = ColumnType::Float;
    constexpr Cut BySemicolons{u';', false, false};
    const struct {
        Cut How;
        char16_t Mark;
        const char16_t* Missing;
        const char16_t* Unit;
        std::vector<ColumnType> Types;
        std::size_t TimeColumn;
    } cases[] = {
        {BySemicolons, u',', u"", u"V", {Float, Float, ColumnType::Text}, 0},
        {BySemicolons, u'.', u"", u"V", {Float, ColumnType::Text, ColumnType::Boolean}, 1},
        {{u'\t', false, false}, u',', u"", u"V", {ColumnType::Integer, ColumnType::Character, Float}, 2},
        {{u' ', true, false}, u'.', u"", u"V", {Float, ColumnType::Hexadecimal, Float}, 1},
        {BySemicolons, u',', u"-999", u"V", {Float, ColumnType::Text, Float}, 0},
        {{u',', false, false}, u'.', u"", u"V", {Float}, 1},
        {BySemicolons, u'.', u"", u"A", {Float, Float, Float}, 3},
        {BySemicolons, u'.', u"", u"E3", {Float, Float}, 2},
        {BySemicolons, u'.', u"", u"x1", {Float, ColumnType::Hexadecimal}, 2},
        {BySemicolons, u'.', u"", u"", {ColumnType::Hexadecimal, ColumnType::Text}, 2},
    };
    for (const auto& c : cases) {
        ReadingPlan plan;
        plan.How = c.How;
        plan.Mark = c.Mark;
        plan.Missing = c.Missing;
        for (const ColumnType type : c.Types) plan.Columns.push_back({u"", c.Unit, type, false, false});
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
