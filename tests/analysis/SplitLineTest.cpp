#include <gtest/gtest.h>

#include "analysis/SplitLine.h"
#include "platform/framework/Text.h"

namespace {

using Texts = std::vector<std::u16string>;

Texts Split(std::u16string line, char16_t separator, bool merge) {
    CellList cells;
    SplitLine(line.data(), separator, merge, cells);
    return Texts(cells.begin(), cells.end());
}

// Each cell in angle brackets.
std::string CellText(const Texts& cells) {
    std::string text;
    for (const std::u16string& cell : cells) text += '<' + Utf16ToUtf8(cell) + '>';
    return text;
}

TEST(SplitLine, CutsAtTheSeparator) {
    struct Case {
        const char16_t* Line;
        const char* Apart;   // without merging
        const char* Merged;  // with merging
    };
    constexpr Case Cases[] = {
        {u"", "<>", "<>"},
        {u"   ", "<>", "<>"},
        {u"a", "<a>", "<a>"},
        {u"a;b;", "<a><b><>", "<a><b>"},
        {u";a", "<><a>", "<><a>"},
        {u";;a", "<><><a>", "<><a>"},
        {u";", "<><>", "<>"},
        {u";;;", "<><><><>", "<>"},
        {u"a;;b", "<a><><b>", "<a><b>"},
        {u"a; ;b", "<a><><b>", "<a><><b>"},
        // Blanks and tabs go from both ends, other white space stays.
        {u" a ; b ", "<a><b>", "<a><b>"},
        {u"\t a b\t;\v\f", "<a b><\v\f>", "<a b><\v\f>"},
        // Quotes.
        {u"\"a;b\";c", "<a;b><c>", "<a;b><c>"},
        {u"\"a\"\"b\"", "<a\"b>", "<a\"b>"},
        {u"\"a\"\"\"", "<a\">", "<a\">"},
        {u"\"\"", "<>", "<>"},
        {u"\"", "<\">", "<\">"},
        {u"\" a \"", "< a >", "< a >"},
        {u" \"a\" ;b", "<a><b>", "<a><b>"},
        {u"x\"a;b\"y;c", "<x\"a;b\"y><c>", "<x\"a;b\"y><c>"},
        {u"\"a;b", "<\"a;b>", "<\"a;b>"},
        {u"\"a;b;\"", "<a;b;>", "<a;b;>"},
        {u"\"a\"b\";c", "<\"a\"b\";c>", "<\"a\"b\";c>"},
        {u"it's;a;b", "<it's><a><b>", "<it's><a><b>"},
        // A line end inside the buffer ends the line, in quotes too.
        {u"a;b\rc;d", "<a><b>", "<a><b>"},
        {u"a;b\nc", "<a><b>", "<a><b>"},
        {u"\"a;\rb\"", "<\"a;>", "<\"a;>"},
        {u"\r", "<>", "<>"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Line));
        EXPECT_EQ(CellText(Split(c.Line, u';', false)), c.Apart);
        EXPECT_EQ(CellText(Split(c.Line, u';', true)), c.Merged) << "merging";
    }
}

TEST(SplitLine, TakesAnySeparator) {
    EXPECT_EQ(CellText(Split(u"  1  2", u' ', true)), "<><1><2>");
    EXPECT_EQ(CellText(Split(u"1  2 ", u' ', true)), "<1><2>");
    EXPECT_EQ(CellText(Split(u"a\t\tb", u'\t', false)), "<a><><b>");
    EXPECT_EQ(CellText(Split(u"a;b", u'\0', false)), "<a;b>");
    EXPECT_EQ(CellText(Split(u" \"a;b\" ", u'\0', true)), "<a;b>");
    EXPECT_EQ(CellText(Split(u"a|b", u'|', false)), "<a><b>");
    EXPECT_EQ(CellText(Split(u"a\u2502b", u'\u2502', false)), "<a><b>");
    // The toggling comes before the comparison: a quote can't separate what it opens.
    EXPECT_EQ(CellText(Split(u"a\"b\"c", u'"', false)), "<a\"b><c>");
}

TEST(SplitLine, KeepsTheListButNotItsOldEntries) {
    std::u16string longer = u"a;b;c;d", shorter = u"x;y";
    CellList cells;
    SplitLine(longer.data(), u';', false, cells);
    const auto* const storage = cells.data();
    SplitLine(shorter.data(), u';', false, cells);
    EXPECT_EQ(CellText(Texts(cells.begin(), cells.end())), "<x><y>");
    EXPECT_EQ(cells.data(), storage);
}

// The same by copies of strings.
Texts ReferenceSplit(const std::u16string& line, char16_t separator, bool merge) {
    Texts cells;
    std::u16string cell;
    bool quoted = false, afterBoundary = false;
    for (const char16_t c : line.substr(0, line.find(u'\r')) + u'\r') {
        if (c == u'"') quoted = !quoted;
        const bool boundary = c == u'\r' || (c == separator && !quoted);
        if (!boundary) cell += c;
        if (boundary && !(merge && afterBoundary)) {
            cell.erase(0, std::min(cell.find_first_not_of(u" \t"), cell.size()));
            cell.erase(cell.find_last_not_of(u" \t") + 1);
            const bool inQuotes = cell.size() > 1 && cell.front() == u'"' && cell.back() == u'"';
            if (inQuotes) cell = ReplaceAll(cell.substr(1, cell.size() - 2), u"\"\"", u"\"");
            cells.push_back(cell);
        }
        if (boundary) cell.clear();
        afterBoundary = boundary;
    }
    return cells;
}

// Compares all lines that `line` is the beginning of, up to a length.
void CompareFrom(std::u16string& line, std::size_t longest) {
    for (const bool merge : {false, true}) {
        for (const char16_t separator : {u';', u' '}) {
            if (Split(line, separator, merge) == ReferenceSplit(line, separator, merge)) continue;
            ADD_FAILURE() << '[' << Utf16ToUtf8(line) << "] at [" << static_cast<char>(separator)
                          << "], merge " << merge << ": " << CellText(Split(line, separator, merge));
        }
    }
    if (line.size() == longest) return;
    for (const char16_t c : {u'a', u';', u'"', u' ', u'\r'}) {
        line.push_back(c);
        CompareFrom(line, longest);
        line.pop_back();
    }
}

TEST(SplitLine, AgreesWithASplitterThatCopies) {
    std::u16string line;
    CompareFrom(line, 6);
}

TEST(UnquoteCell, TakesOuterQuotesOnly) {
    struct Case {
        const char16_t* Cell;
        const char* Text;
    };
    constexpr Case Cases[] = {
        {u"a", "a"},
        {u"\"", "\""},
        {u"\"\"", ""},
        {u"\"\"\"", "\""},
        {u"\"\"\"\"", "\""},
        {u"\"a\"", "a"},
        {u"\"a\"b\"", "a\"b"},
        {u"\"a\"\"b\"\"c\"", "a\"b\"c"},
        {u"\"\"\"\"\"\"", "\"\""},
        {u"\"a", "\"a"},
        {u"a\"", "a\""},
        {u"'a'", "'a'"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Cell));
        std::u16string cell = c.Cell;
        EXPECT_EQ(Utf16ToUtf8(UnquoteCell(cell.data(), cell.data() + cell.size() - 1)), c.Text);
    }
}

}  // namespace
