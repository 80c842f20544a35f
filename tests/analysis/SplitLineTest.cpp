#include "analysis/SplitLine.h"

#include <algorithm>
#include <random>

#include "analysis/SplitPaddedLine.h"
#include "kit/CheckRows.h"
#include "kit/WalkCells.h"
#include "settings/CsvImportSettings.h"

namespace {

using Texts = std::vector<std::u16string>;

Texts Split(std::u16string line, char16_t separator, bool merge) {
    CellList cells;
    SplitLine(line.data(), separator, merge, cells);
    return Texts(cells.begin(), cells.end());
}

// The same in steps of many characters.
Texts SplitPadded(std::u16string line, char16_t separator, bool merge) {
    CellList cells{nullptr, nullptr};  // as left by another line
    line.append(LinePadding, u'\0');
    SplitPaddedLine(line.data(), separator, merge, cells);
    return Texts(cells.begin(), cells.end());
}

// The same of a line in bytes that is held, with a line beyond ASCII behind it. What can't be cut so is cut
// as above. `copy` is that of lines before.
Texts SplitHeld(const std::u16string& line, char16_t separator, bool merge, std::vector<char>& copy) {
    const std::string bytes = Utf16ToUtf8(line) + (line.size() % 2 == 0 ? "\n" : "\r\n");
    const std::string held = bytes + "\xC3\xBC" + std::string(LinePadding, '\n');
    ByteCellList cells{nullptr, nullptr};
    const std::size_t length =
        SplitHeldLine({held.data(), held.size() - LinePadding}, separator, merge, copy, cells);
    const std::size_t end = bytes.find_first_of(std::string_view("\0\r\n", 3));
    const bool isPlain = std::all_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const std::size_t lengthOfEnd = bytes[end] == '\n' ? 1 : bytes.substr(end, 2) == "\r\n" ? 2 : 0;
    const bool canBeCut = isPlain && lengthOfEnd != 0 && !EndsLine(separator) && separator < 0x80;
    EXPECT_EQ(length, canBeCut ? end + lengthOfEnd : 0) << bytes;
    if (length == 0) return Split(line, separator, merge);
    Texts texts;
    for (const char* const cell : cells) texts.push_back(Utf8ToUtf16(cell));
    return texts;
}

// Each cell in angle brackets.
std::string CellText(const Texts& cells) {
    std::string text;
    for (const std::u16string& cell : cells) text += '<' + Utf16ToUtf8(cell) + '>';
    return text;
}

TEST(SplitLine, CutsAtTheSeparator) {
    CheckRows(
        "-><>|   -><>|a-><a>|;a-><><a>|a; ;b-><a><><b>|\r-><>|a;b\rc;d-><a><b>|a;b\nc-><a><b>|"
        " a ; b -><a><b>|\t a b\t;\v\f-><a b><\v\f>|"
        // Quotes.
        "\"a;b\";c-><a;b><c>|\"a\"\"b\"-><a\"b>|\"a\"\"\"-><a\">|\"\"-><>|\"-><\">|\" a \"->< a >|"
        " \"a\" ;b-><a><b>|x\"a;b\"y;c-><x\"a;b\"y><c>|\"a;b-><\"a;b>|\"a;b;\"-><a;b;>|\"a;\rb\"-><\"a;>|"
        "\"a\"b\";c-><\"a\"b\";c>|it's;a;b-><it's><a><b>|"
        // With merging last.
        "a;b;-><a><b><> <a><b>|;;a-><><><a> <><a>|;-><><> <>|;;;-><><><><> <>|a;;b-><a><><b> <a><b>",
        [](const std::u16string& line) {
            const std::string apart = CellText(Split(line, u';', false));
            const std::string merged = CellText(Split(line, u';', true));
            return merged == apart ? apart : apart + ' ' + merged;
        });
}

TEST(SplitLine, TakesAnySeparator) {
    EXPECT_EQ(CellText(Split(u"  1  2 ", u' ', true)), "<><1><2>");
    EXPECT_EQ(CellText(Split(u" \"a;b\" ", u'\0', true)), "<a;b>");
    EXPECT_EQ(CellText(Split(u"a\u2502b\tc", u'\u2502', false)), "<a><b\tc>");
    // The toggling comes before the comparison: a quote can't separate what it opens.
    EXPECT_EQ(CellText(Split(u"a\"b\"c", u'"', false)), "<a\"b><c>");
}

// Compares all lines up to a length that `line` is the beginning of.
void CompareFrom(const std::u16string& line) {
    static std::vector<char> copy;
    for (const bool merge : {false, true}) {
        for (const char16_t separator : {u';', u' '}) {
            const Texts expected = WalkCells(line, separator, merge);
            if (Split(line, separator, merge) == expected &&
                SplitPadded(line, separator, merge) == expected &&
                SplitHeld(line, separator, merge, copy) == expected)
                continue;
            ADD_FAILURE() << '[' << Utf16ToUtf8(line) << "] at " << int{separator} << ", merge " << merge;
        }
    }
    for (const char16_t c : std::u16string_view(line.size() < 6 ? u"a;\" \r" : u"")) CompareFrom(line + c);
}

TEST(SplitLine, AgreesWithASplitterThatCopies) {
    CompareFrom(u"");
}

// Mostly cells as programs write them, so that most quotes begin or end one.
std::u16string RandomRow(std::minstd_rand& random) {
    constexpr std::u16string_view Cells[] = {u"12,5",  u"x",          u"",        u"\"a;b\"", u"\"\"",
                                             u"\"a\"", u"\"a\"\"b\"", u" \"a\" ", u"\"a\"b",  u"\""};
    std::u16string row;
    for (std::size_t cells = random() % 40; cells > 0; --cells) {
        const std::size_t odd = random() % 16 == 0 ? std::size(Cells) : 6;
        row += Cells[random() % odd];
        row.append(cells == 1 ? 0 : 1, u';');
    }
    return row;
}

std::u16string RandomText(std::minstd_rand& random) {
    constexpr std::u16string_view Alphabets[] = {u"ab1;",     u"ab1,.; ",           u"a;\"",
                                                 u"a\t;\" x", u"\x3B00\x22;a\x100", u"a;;  "};
    const std::u16string_view alphabet = Alphabets[random() % std::size(Alphabets)];
    std::u16string line(random() % 300, u'a');
    for (char16_t& c : line) c = random() % 3 == 0 ? alphabet[random() % alphabet.size()] : u'x';
    return line;
}

// Lines longer than a step, whose cells, quotes and ends fall on every place of one.
TEST(SplitLine, GivesTheSameInSteps) {
    std::minstd_rand random(5);
    std::vector<char> copy;
    for (int i = 0; i < 30'000; ++i) {
        std::u16string line = i % 3 == 0 ? RandomRow(random) : RandomText(random);
        if (random() % 8 == 0) line.insert(random() % (line.size() + 1), 1, u"\n\r\0"[random() % 3]);
        for (const char16_t separator : {u';', u'\t', u'"', u'\r', u'\0'}) {
            const bool merge = i % 2 != 0;
            const Texts expected = Split(line, separator, merge);
            ASSERT_EQ(SplitPadded(line, separator, merge), expected) << Utf16ToUtf8(line);
            ASSERT_EQ(SplitHeld(line, separator, merge, copy), expected) << Utf16ToUtf8(line);
        }
    }
}

// What is behind the held bytes, line ends among it, is not theirs.
TEST(SplitLine, LeavesALineAloneThatIsNotHeldWhole) {
    for (const std::string end : {"\n", "\r\n"}) {
        for (const std::size_t cellsLength : {0u, 5u, 63u, 64u, 200u}) {
            const std::string line = std::string(cellsLength, ';') + end;
            const std::string held = line + std::string(LinePadding, '\n');
            std::vector<char> copy;
            ByteCellList cells;
            for (std::size_t count = 0; count <= line.size(); ++count) {
                const std::size_t expected = count == line.size() ? count : 0;
                EXPECT_EQ(SplitHeldLine({held.data(), count}, u';', false, copy, cells), expected)
                    << count << " bytes of " << line.size();
            }
            EXPECT_EQ(cells.size(), cellsLength + 1);
        }
    }
}

TEST(SplitLine, CountsSeparatorsOutsideBothKindsOfQuotes) {
    CheckRows(
        "->0|a->0|a;b;->2|;;->2 1|;;a;;;b->5 2|"
        // A quote that is never closed hides the rest; the other kind is an ordinary character in quotes.
        "it's;a;b->0|a;'b;c'->1|\"a;b\";c->1|\"a\"\";b\";c->1|a;\"b;c->1|\"it's\";a->1|'say \"';a->1|"
        // A quote between two separators ends a run of them.
        ";\"\";->2|;\"x;y\";->2",
        [](const std::u16string& line) {
            const SeparatorCount count = CountSeparators(line)[SeparatorSemicolon];
            const std::string apart = std::to_string(count.All);
            const std::string merged = std::to_string(count.Merged);
            return merged == apart ? apart : apart + ' ' + merged;
        });
    const SeparatorCounts all = CountSeparators(u";,,\t\t\t    ");
    for (const std::size_t s : {0u, 1u, 2u, 3u}) {
        EXPECT_EQ(all[s].All, static_cast<int>(s) + 1);
        EXPECT_EQ(all[s].Merged, 1);
    }
}

}  // namespace
