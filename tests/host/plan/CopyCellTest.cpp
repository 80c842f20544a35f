// Cells of a file as a copy has them.
#include "host/plan/CopyCell.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

// Of "v|V#i", a name, a unit after "|" and a type after "#": t text, c character, b boolean, i integer,
// h hexadecimal, or none for float.
struct TypedColumn {
    explicit TypedColumn(const std::string& text) {
        constexpr std::string_view Types = "tcbihf";
        const std::size_t type = text.find('#');
        if (type != text.npos) Type = static_cast<ColumnType>(Types.find(text[type + 1]));
        if (const std::size_t unit = text.find('|'); unit != text.npos)
            Column.Unit = Utf8ToUtf16(text.substr(unit + 1, type - unit - 1));
    }
    PlannedColumn Column;
    ColumnType Type = ColumnType::Float;
};

TEST(CopyCell, IsWrittenAsTheModuleReadsIt) {
    const struct {
        const char* Column;
        char16_t Mark;
        const char* Cell;
        const char* Written;
    } cases[] = {
        // Numbers.
        {"v", u'.', "1.5", "1.5"},
        {"v", u'.', "-12", "-12"},
        {"v", u'.', "+.5", "+.5"},
        {"v", u'.', "1e5", "1e5"},
        {"v", u'.', "1.5D+01", "1.5E+01"},
        {"v", u'.', "+   24.31", "+24.31"},
        {"v", u',', "1,5", "1.5"},
        {"v", u',', "-0,25e-3", "-0.25e-3"},
        {"v", u',', "12", "12"},
        {"v", u',', "1.234,5", "1234.5"},
        {"v", u'.', "1,234.5", "1234.5"},
        {"v", u'.', "1,234,567", "1234567"},
        {"v", u',', "−1,5", "-1.5"},
        {"v", u',', "–1\u202F234,5", "-1234.5"},
        {"v|V", u',', "−1,5 V", "-1.5"},
        {"v", u'.', "\\N", ""},
        {"v", u'.', "1'234.5", "1234.5"},
        {"v", u'.', "1,234", "1234"},
        {"v#i", u',', "12.345", "12345"},
        // The mark of neither: it can't be told what is meant.
        {"v", u'.', "1,5", "1,5"},
        {"v", u'.', "1234,567", "1234,567"},
        {"v", u',', "1.5", "1.5"},
        {"v", u',', "1.2345", "1.2345"},
        // Amounts.
        {"v|V", u'.', "12.3 V", "12.3"},
        {"v|V", u',', "12,3V", "12.3"},
        {"v|g", u'.', "+   74.6525 g", "74.6525"},
        {"v|g", u'.', "-   74.6525 g", "-74.6525"},
        {"v|V", u'.', "12.3 mV", "\"12.3 mV\""},
        {"v|V", u'.', "+-12 V", "\"+-12 V\""},
        {"v|V", u'.', "V", "V"},
        // Missing values, and other words.
        {"v", u'.', "NaN", ""},
        {"v#i", u'.', "n/a", ""},
        {"v#h", u'.', "---", ""},
        {"v#b", u'.', "-", ""},
        {"v", u'.', "", ""},
        {"v", u'.', "broken", "broken"},
        {"v#h", u'.', "0x1F", "0x1F"},
        // Truth values.
        {"v#b", u'.', "true", "true"},
        {"v#b", u'.', "OFF", "false"},
        {"v#b", u'.', "ja", "true"},
        {"v#b", u'.', "1", "1"},
        {"v#b", u'.', "open", "open"},
        {"v", u'.', "off", "off"},
        // Texts.
        {"v#t", u',', "1,5", "1,5"},
        {"v#t", u'.', "n/a", "n/a"},
        {"v#t", u'.', "on", "on"},
        {"v#c", u'.', "-", "-"},
        {"v#t", u'.', "two words", "\"two words\""},
        {"v#t", u'.', "\xC3\xBC\xE2\x82\xAC", "\xC3\xBC\xE2\x82\xAC"},
        {"v#t", u'.', "say \"no\"", "\"say \"\"no\"\"\""},
        {"v#t", u'.', "5\" pipe", "\"5\"\" pipe\""},
        {"v#t", u'.', "a\tb", "\"a|b\""},
        {"v#t", u'.', "a\rb", "\"a b\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Column) + " " + c.Cell);
        const TypedColumn typed(c.Column);
        CellCopier copier(typed.Column, typed.Type, c.Mark);
        RowText row;
        copier.Append(Utf8ToUtf16(c.Cell), row);
        std::string written(row.Text());
        for (char& character : written) character = character == '\t' ? '|' : character;
        EXPECT_EQ(written, c.Written);
    }
}

// What the counts of a column say after all its cells.
TEST(CopyCell, CountsWhatItChanges) {
    const struct {
        const char* Column;
        std::vector<const char*> Cells;
        std::uint64_t Values, Markers;
        bool IsWrongType;
    } cases[] = {
        {"v", {"1,5", "2", "-0,5", "n/a", ""}, 2, 1, false},
        {"v#b", {"true", "ON", "off", "-"}, 2, 1, false},
        // Nothing would be another cell: the type alone is wrong.
        {"v#i", {"a b", "c"}, 0, 0, false},
        {"v#t", {"1", "2"}, 0, 0, false},
        // Some would.
        {"v#t", {"1,5", "2"}, 0, 0, true},
        {"v#t", {"1", "n/a"}, 0, 0, true},
        {"v", {"1,5", "words", "more"}, 1, 0, true},
        {"v#i", {"on", "off", "1"}, 0, 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Column) + " " + c.Cells.front());
        const TypedColumn typed(c.Column);
        CellCopier copier(typed.Column, typed.Type, u',');
        RowText written;
        for (const char* const cell : c.Cells) copier.Append(Utf8ToUtf16(cell), written);
        EXPECT_EQ(copier.ChangedValues(), c.Values);
        EXPECT_EQ(copier.ChangedMarkers(), c.Markers);
        EXPECT_EQ(copier.IsWrongType(), c.IsWrongType);
    }
}

// Cells that come again are counted as cells, with those of many others between them.
TEST(CopyCell, CountsEveryCell) {
    const char* const texts[] = {
        "on",     "door 3", "n/a",
        "1 V",    "2,5 V",  "2.5",
        "1e5",    "0x1F",   "A1",
        "x",      "open",   "NaN",
        "7",      "1,25",   "",
        "door 4", "3 A",    "Off",
        "1.000",  "#N/A",   "a text longer than those that are remembered of the cells of one column"};
    for (const char* const column : {"v", "v|V", "v#t", "v#b"}) {
        SCOPED_TRACE(column);
        const TypedColumn typed(column);
        CellCopier copier(typed.Column, typed.Type, u',');
        CellCounts counts;
        RowText written;
        for (std::size_t i = 0; i < 3000; ++i) {
            // Every other cell is one of its own.
            std::u16string cell = Utf8ToUtf16(texts[i * i % 7 * i % std::size(texts)]);
            if (i % 2 == 0) cell = u"n" + Utf8ToUtf16(std::to_string(i));
            counts.Add(cell, u',');
            CellCopier anew(typed.Column, typed.Type, u',');
            RowText expected;
            anew.Append(cell, expected);
            written.Clear();
            copier.Append(cell, written);
            ASSERT_EQ(written.Text(), expected.Text()) << i;
        }
        EXPECT_TRUE(copier.Counts() == counts);
    }
}

}  // namespace
