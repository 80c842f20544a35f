// Lines cut into cells, and what the cells look like.
#include "host/plan/Cells.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

constexpr Cut Semicolons{u';', false, false};
constexpr Cut Commas{u',', false, false};
constexpr Cut Blanks{u' ', true, false};
constexpr Cut QuotedLines{u',', false, true};
constexpr Cut OneCell{};

struct CutCase {
    const char* Line;
    Cut How;
    const char* Cells;  // in brackets each
};

TEST(PlanCells, AreCutAtSeparators) {
    const CutCase cases[] = {
        {"", Semicolons, "[]"},
        {"1;2;3", Semicolons, "[1][2][3]"},
        {"1; 2 ;3;", Semicolons, "[1][2][3][]"},
        {";;", Semicolons, "[][][]"},
        {"a b;c", Semicolons, "[a b][c]"},
        {"  1.5   2,5\t3 ", Blanks, "[1.5][2,5][3]"},
        {"   ", Blanks, ""},
        {" a;b ", OneCell, "[a;b]"},
        // Quotes enclose a cell, and hold what separates.
        {"\"1,5\",2", Commas, "[1,5][2]"},
        {"\"a \"\"b\"\" c\",2", Commas, "[a \"b\" c][2]"},
        {" \"a,b\" ,2", Commas, "[a,b][2]"},
        {"\"10:00:00 1\" 2", Blanks, "[10:00:00 1][2]"},
        // Quotes that don't enclose a cell are text.
        {"5\" pipe,2", Commas, "[5\" pipe][2]"},
        {"\"open,2", Commas, "[\"open][2]"},
        {"\"a\"b,2", Commas, "[\"a\"b][2]"},
        // A whole line in quotes.
        {"\"1,2,3\"", QuotedLines, "[1][2][3]"},
        {"\"a,\"\"b,c\"\",d\"", QuotedLines, "[a][b,c][d]"},
        {"1,2", QuotedLines, "[1][2]"},
    };
    for (const CutCase& c : cases) {
        SCOPED_TRACE(c.Line);
        const std::u16string line = Utf8ToUtf16(c.Line);
        LineCutter cut(c.How);
        std::string cells;
        for (const std::u16string_view cell : cut(line)) cells += "[" + Utf16ToUtf8(cell) + "]";
        EXPECT_EQ(cells, c.Cells);
    }
}

TEST(PlanCells, ALineAfterAnotherLeavesNothingOfIt) {
    const std::u16string lines[] = {u"\"a\"\"b\",2,3", u"4"};
    LineCutter cut(Commas);
    EXPECT_EQ(cut(lines[0]).size(), 3U);
    ASSERT_EQ(cut(lines[1]).size(), 1U);
    EXPECT_EQ(cut(lines[1])[0], u"4");
}

struct CellCase {
    const char* Cell;
    const char* Outcome;
};

TEST(PlanCells, LookLikeWhatPeopleSee) {
    constexpr const char* Names[] = {"empty", "number", "hex", "time", "amount", "truth", "word"};
    const CellCase cases[] = {
        {"", "empty"},           {"NaN", "empty"},
        {"n/a", "empty"},        {"---", "empty"},
        {"#N/A", "empty"},       {"OVER", "empty"},
        {"(NaN)", "empty"},      {"**********", "empty"},
        {">>>>", "empty"},       {"0", "number"},
        {"-1.5", "number"},      {"+   24.31", "number"},
        {"−1,5", "number"},      {"–12", "number"},
        {"−", "word"},           {"–", "empty"},
        {"\\N", "empty"},        {"12\u202F345", "number"},
        {"1.4D+01", "number"},   {"+3,25", "number"},
        {"1.528,53", "number"},  {"1,528.53", "number"},
        {"1'234'567", "number"}, {".5", "number"},
        {"5.", "number"},        {"1.5e-3", "number"},
        {"2E+10", "number"},     {"(0.123)", "number"},
        {"0x1F", "hex"},         {"7F", "hex"},
        {"000002FF", "hex"},     {"[dB]", "word"},
        {"000002E4", "number"},  // with an exponent
        {"2BF", "amount"},       // of three digits, it is a number with letters after it
        {"2024-01-31", "time"},  {"31.01.2024 10:00:00", "time"},
        {"10:00:00.5", "time"},  {"1/31/2024 9:05 PM", "time"},
        {"10 V", "amount"},      {"12.5 V DC", "amount"},
        {"72%", "amount"},       {"26,2 °C", "amount"},
        {"true", "truth"},       {"OFF", "truth"},
        {"closed", "truth"},     {"10 green bottles", "word"},
        {"1/min", "word"},       {"5/8", "word"},
        {"Druck", "word"},       {"V", "word"},
        {"1.2.3 beta", "word"},
    };
    for (const CellCase& c : cases)
        EXPECT_STREQ(Names[static_cast<int>(KindOf(Utf8ToUtf16(c.Cell)))], c.Outcome) << c.Cell;
}

// "12.5 mark . thousands , e", or "none".
std::string NumberInWords(const std::string& cell) {
    const std::u16string text = Utf8ToUtf16(cell);
    const std::optional<NumberLook> look = LookAtNumber(text);
    if (!look) return "none";
    char shown[40];
    std::snprintf(shown, sizeof shown, "%.12g", ValueOf(text, *look));
    std::string all = shown;
    if (look->Mark != u'\0') all += std::string(" mark ") + static_cast<char>(look->Mark);
    if (look->Thousands != u'\0') all += " thousands";
    return look->HasExponent ? all + " e" : all;
}

TEST(PlanCells, NumbersHaveMarksAndThousands) {
    const CellCase cases[] = {
        {"12", "12"},
        {"-12.5", "-12.5 mark ."},
        {"-12,5", "-12.5 mark ,"},
        {"1.500", "1.5 mark ."},
        {"1,528.5", "1528.5 mark . thousands"},
        {"1.528,5", "1528.5 mark , thousands"},
        {"1,234,567", "1234567 thousands"},
        {"1.234.567,5", "1234567.5 mark , thousands"},
        {"12'345", "12345 thousands"},
        {"1e3", "1000 e"},
        {"1,5e-1", "0.15 mark , e"},
        {"+   24.5", "24.5 mark ."},
        {"-  3", "-3"},
        {"1.5D+01", "15 mark . e"},
        {"4D2", "none"},
        {"", "none"},
        {"-", "none"},
        {"1.2.3", "none"},
        {"1,23,456", "none"},
        {"1234.567.890", "none"},
        {"1.5,2.5", "none"},
        {"5 V", "none"},
        {"1e", "none"},
        {"e5", "none"},
    };
    for (const CellCase& c : cases) EXPECT_EQ(NumberInWords(c.Cell), c.Outcome) << c.Cell;
}

TEST(PlanCells, AmountsAreNumbersWithUnits) {
    const CellCase cases[] = {{"72%", "72|%"}, {"26,2 °C", "26,2|°C"},       {"+   74.65 g", "+74.65|g"},
                              {"-3V", "-3|V"}, {"12.5 V DC", "12.5|V DC"},   {"36.5 dB(A)", "36.5|dB(A)"},
                              {"72", "none"},  {"1.5e-3", "none"},           {"1:1", "none"},
                              {"5/8", "none"}, {"10 green bottles", "none"}, {"V", "none"},
                              {"", "none"}};
    for (const CellCase& c : cases) {
        const std::optional<Amount> amount = AmountIn(Utf8ToUtf16(c.Cell));
        const std::string shown =
            amount ? Utf16ToUtf8(amount->Number) + "|" + Utf16ToUtf8(amount->Unit) : "none";
        EXPECT_EQ(shown, c.Outcome) << c.Cell;
    }
}

TEST(PlanCells, AreTakenOutOfBrackets) {
    const CellCase cases[] = {{"(1.5)", "1.5"}, {"[ mV ]", "mV"}, {"()", ""},       {"(a", "(a"},
                              {"[a)", "[a)"},   {" x ", "x"},     {"((1))", "(1)"}, {"", ""}};
    for (const CellCase& c : cases) {
        const std::u16string cell = Utf8ToUtf16(c.Cell);
        EXPECT_EQ(Utf16ToUtf8(WithoutBrackets(cell)), c.Outcome) << c.Cell;
    }
}

}  // namespace
