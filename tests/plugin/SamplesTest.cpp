#include <gtest/gtest.h>

#include "kit/ImportRun.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Text.h"

namespace {

// A column "n" with these cells, read as a type that the user chose. The cells follow an empty line: the
// analysis ends there and settles no unit.
std::string ImportAs(ECsvDataType type, const std::string& cells) {
    ImportRun run("n;\n\n" + cells);
    run.Settings().GetColumn(0).UserType = type;
    return run.Import();
}

TEST(Samples, HoldTheValuesOfTheirType) {
    ImportRun run(
        "b;i;iu;h;f;fu;c;s\n"
        "true;5;5 kg;$FF;1.5;1.5 m;x;abx\n"
        "0;-7;6 kg;0x10;-2,25;3 m;41;\n"
        "1,0;9223372036854775807;-1 kg;16#A;1e3;-1,5 m; y ;\" ä€ \"\n");
    EXPECT_EQ(run.Import(),
              "b: 1=0xFF 2=0x00 3=0xFF\n"
              "i: 1=5 2=-7 3=9223372036854775807\n"
              "iu [ kg]: 1=5 2=6 3=-1\n"
              "h: 1=255 2=16 3=10\n"
              "f: 1=1.5 2=-2.25 3=1000\n"
              "fu [ m]: 1=1.5 2=3 3=-1.5\n"
              "c: 1='x' 2='A' 3='y'\n"
              "s: 1=\"abx\" 2=\"\" 3=\" ä€ \"\n");
}

TEST(Samples, AreBytesOfTheMachinesOrder) {
    ImportRun run("i;f;c;s\n-2;1.5;x;ab\n");
    run.Settings().GetColumn(2).UserType = CsvTypeChar;
    run.Settings().GetColumn(3).UserType = CsvTypeString;
    ASSERT_NE(run.Import(), "");
    using namespace std::string_literals;
    EXPECT_EQ(run.Host.Signal(0).Samples[0].Bytes, "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s);
    EXPECT_EQ(run.Host.Signal(1).Samples[0].Bytes, "\0\0\0\0\0\0\xF8\x3F"s);
    EXPECT_EQ(run.Host.Signal(2).Samples[0].Bytes, "x\0"s);
    EXPECT_EQ(run.Host.Signal(3).Samples[0].Bytes, "a\0b\0"s);
}

TEST(Samples, OfIntegersDropTheMarks) {
    EXPECT_EQ(ImportAs(CsvTypeInteger, "1.234\n12,5\n-1,234.5\n"), "n: 1=1234 2=125 3=-12345\n");
    EXPECT_EQ(ImportAs(CsvTypeIntegerUnit, "1.234 kg\n1,5 kg\n"), "n [ kg]: 1=1234 2=15\n");
    EXPECT_EQ(ImportAs(CsvTypeInteger, "99999999999999999999\n"), "n: 1=9223372036854775807\n");
}

// A refused cell is quoted as its parser left it.
TEST(Samples, OfRefusedCellsHaveNoValue) {
    const char16_t mark = LocaleDecimalPoint();
    const std::string point = Utf16ToUtf8(std::u16string_view(&mark, 1));
    struct Case {
        ECsvDataType Type;
        const char* Cell;
        const char* Sample;
        std::string Quoted;  // empty for no message
        const char* Label;
    };
    const Case cases[] = {
        {CsvTypeBoolean, "2", "none(1)", "2", "Boolescher Wert"},
        {CsvTypeBoolean, "1,5", "none(1)", "1" + point + "5", "Boolescher Wert"},
        {CsvTypeInteger, "x", "none(8)", "x", "Ganzzahl"},
        {CsvTypeInteger, "1.2,x", "none(8)", "12x", "Ganzzahl"},
        {CsvTypeInteger, ".", "none(8)", "", ""},
        {CsvTypeInteger, ".,.", "none(8)", "", ""},
        {CsvTypeIntegerUnit, "12", "none(8)", "12", "Ganzzahl mit Einheit"},
        {CsvTypeHex, "0xg", "none(8)", "0xg", "Hexadezimalzahl"},
        {CsvTypeHex, "1.5", "none(8)", "1.5", "Hexadezimalzahl"},
        {CsvTypeFloat, "1,234,567", "none(8)", "1" + point + "234" + point + "567", "Fließkommazahl"},
        {CsvTypeFloat, "1.234,x", "none(8)", "1234" + point + "x", "Fließkommazahl"},
        {CsvTypeFloat, "%i %s", "none(8)", "%i %s", "Fließkommazahl"},
        {CsvTypeFloatUnit, "1,5", "none(8)", "1" + point + "5", "Fließkommazahl mit Einheit"},
        {CsvTypeChar, "xy", "none(2)", "xy", "Zeichen / Buchstabe"},
        // An empty cell is no mistake.
        {CsvTypeBoolean, "\"\"", "none(1)", "", ""},
        {CsvTypeFloat, "\"\"", "none(8)", "", ""},
        {CsvTypeChar, "\"\"", "none(2)", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.Cell) + " as " + std::to_string(c.Type));
        const std::string message = c.Quoted.empty() ? "" : WrongCell(0, c.Quoted, "n", 2, c.Label);
        EXPECT_EQ(ImportAs(c.Type, c.Cell), std::string("n: 1=") + c.Sample + '\n' + message);
    }
}

TEST(Samples, OfOtherColumnsDoNotSufferFromARefusedOne) {
    ImportRun run("a;b;c\n5;6;7\nx;y;8\n9;9;9\n\n1;2;z\n");
    run.Settings().GetColumn(0).UserType = CsvTypeInteger;
    run.Settings().GetColumn(1).UserType = CsvTypeFloat;
    run.Settings().GetColumn(1).UserName = u"mine";
    EXPECT_EQ(run.Import(),
              "a: 1=5 2=none(8) 3=9 4=1\n"
              "mine: 1=6 2=none(8) 3=9 4=2\n"
              "c: 1=7 2=8 3=9 4=none(8)\n" +
                  WrongCell(0, "x", "a", 3, "Ganzzahl") + WrongCell(1, "y", "mine", 3, "Fließkommazahl") +
                  WrongCell(2, "z", "c", 5, "Ganzzahl"));
}

TEST(Samples, OfAShortRowHaveNoValueAndNoMessage) {
    ImportRun run("b;i;h;f;c;s\ntrue;5;$FF;1.5;x;abx\n\"\"\n0;6;7;8;9;10;11;12\n");
    for (int i = 0; i < 6; ++i) {
        constexpr ECsvDataType Types[] = {CsvTypeBoolean, CsvTypeInteger, CsvTypeHex,
                                          CsvTypeFloat,   CsvTypeChar,    CsvTypeString};
        run.Settings().GetColumn(i).UserType = Types[i];
    }
    EXPECT_EQ(run.Import(),
              "b: 1=0xFF 2=none(1) 3=0x00\n"
              "i: 1=5 2=none(8) 3=6\n"
              "h: 1=255 2=none(8) 3=7\n"
              "f: 1=1.5 2=none(8) 3=8\n"
              "c: 1='x' 2=none(2) 3='9'\n"
              "s: 1=\"abx\" 2=none(0) 3=\"10\"\n");
}

TEST(Samples, SettleTheUnitWithTheFirstAcceptedOne) {
    EXPECT_EQ(ImportAs(CsvTypeIntegerUnit, "5\n12 kg\n13 lb\n14 kg\n"),
              "n [ kg]: 1=none(8) 2=12 3=none(8) 4=14\n" + WrongCell(0, "5", "n", 2, "Ganzzahl mit Einheit") +
                  WrongCell(0, "13 lb", "n", 4, "Ganzzahl mit Einheit"));
    EXPECT_EQ(ImportAs(CsvTypeFloatUnit, "1.5m\n2,5m\n3 m\n"),
              "n [m]: 1=1.5 2=2.5 3=none(8)\n" + WrongCell(0, "3 m", "n", 4, "Fließkommazahl mit Einheit"));
    // No sample, no unit; and no other type has one.
    EXPECT_EQ(ImportAs(CsvTypeFloatUnit, "\"\"\n"), "n: 1=none(8)\n");
    ImportRun run("a\n5 kg\n6\n");
    run.Settings().GetColumn(0).UserType = CsvTypeFloat;
    EXPECT_EQ(run.Import(), "a: 1=none(8) 2=6\n" + WrongCell(0, "5 kg", "a", 2, "Fließkommazahl"));
}

TEST(Samples, LeaveAUnitThatTheSignalHas) {
    ImportRun run("a\n5 kg\n6 kg\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    run.Host.Signal(0).Unit = u"t";
    run.ReadAll();
    EXPECT_EQ(run.Host.DescribeSamples(), "a [t]: 1=5 2=6\n");
    EXPECT_EQ(run.Host.Signal(0).UnitsSet, 0);
}

TEST(Samples, MayBeRefusedByTheStore) {
    ImportRun run("a;b\n5;6\n7;8\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    run.Host.Signal(0).RefusesSamples = true;
    run.ReadAll();
    EXPECT_EQ(run.Host.DescribeSamples() + run.Messages(), "a:\nb: 1=6 2=8\n");
}

}  // namespace
