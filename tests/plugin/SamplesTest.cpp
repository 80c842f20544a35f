// The signals of a run, and what they take.
#include "kit/CheckRows.h"
#include "kit/ImportRun.h"
#include "kit/LocalMoment.h"

namespace {

TEST(Samples, HaveTheirColumnsTypeAndNoValueInAShortRow) {
    ImportRun run(
        "b;i;iu;h;f;fu;c;s\ntrue;5;5 kg;$FF;1.5;1.5 m;x;abx\n0;-7;6 kg;0x10;-2,25;3 m;41;\n"
        "1,0;9223372036854775807;-1 kg;16#A;1e3;-1,5 m; y ;\" ä€ \"\n\"\"\n0;6;7 kg;8;9;1 m;1;2;surplus\n");
    const ECsvDataType types[] = {CsvTypeBoolean, CsvTypeInteger,   CsvTypeIntegerUnit, CsvTypeHex,
                                  CsvTypeFloat,   CsvTypeFloatUnit, CsvTypeChar,        CsvTypeString};
    for (int i = 0; i < 8; ++i) run.Column(i).UserType = types[i];
    ASSERT_TRUE(run.Filter->BeginImport());
    EXPECT_EQ(
        run.Host.DescribeSignals(),
        "Spalte 1 0/1 \"b\"\nSpalte 2 15/8 \"i\"\nSpalte 3 15/8 \"iu\"\nSpalte 4 15/8 0 <GuiSignal "
        "DirBlockId=\"4026531844\"><Plugin id=\"1\"><Hex>1</Hex></Plugin></GuiSignal> \"h\"\n"
        "Spalte 5 13/8 \"f\"\nSpalte 6 13/8 \"fu\"\nSpalte 7 19/2 \"c\"\nSpalte 8 22/4294967295 \"s\"\n");
    EXPECT_EQ(run.Host.Signals[2]->Unit, u"");
    while (run.Next()) continue;
    EXPECT_EQ(run.Host.DescribeSamples() + run.Messages(),
              "b: 1=255 2=0 3=255 4=none(1) 5=0\ni: 1=5 2=-7 3=9223372036854775807 4=none(8) 5=6\n"
              "iu [ kg]: 1=5 2=6 3=-1 4=none(8) 5=7\nh: 1=255 2=16 3=10 4=none(8) 5=8\n"
              "f: 1=1.5 2=-2.25 3=1000 4=none(8) 5=9\nfu [ m]: 1=1.5 2=3 3=-1.5 4=none(8) 5=1\n"
              "c: 1=\"x\" 2=\"A\" 3=\"y\" 4=none(2) 5=\"1\"\n"
              "s: 1=\"abx\" 2=\"\" 3=\" ä€ \" 4=none(0) 5=\"2\"\n");
}

TEST(Samples, AreOfTheChosenColumnsWithoutDateAndTime) {
    const auto signals = [](const SettingList& settings, std::string_view bytes = "a;b;\n5;6;7\n") {
        ImportRun run(bytes, settings);
        EXPECT_TRUE(run.Filter->AnalyzeFile());  // a column without a type would be built anew
        run.Column(1).UserName = u"mine";
        run.Column(3).ImportColumn = false;
        EXPECT_TRUE(run.Filter->BeginImport());
        return run.Host.DescribeSignals();
    };
    const std::string a = "Spalte 1 15/8 \"a\"\n", b = "Spalte 2 15/8 \"mine\"\n", c = "Spalte 3 15/8 \"\"\n";
    EXPECT_EQ(signals({"DateSetting=0", "DateColumn=9"}), a + b + c);
    EXPECT_EQ(signals({"DateSetting=0", "DateColumn=1", "TimeSetting=0", "TimeColumn=3"}), b);
    EXPECT_EQ(signals({"DateSetting=1", "DateColumn=1", "TimeSetting=0", "TimeColumn=3"}), a + b);
    EXPECT_EQ(signals({"ImportHeader=0"}, "5;6;7;8\n"),
              "Spalte 1 15/8 \"Spalte 1\"\n" + b + "Spalte 3 15/8 \"Spalte 3\"\n");
    // A time column is enough for a run: it checks the rows' times.
    ImportRun run("t\n5\n7\n7\n9\n", {"TimeSetting=0", "TimestampFormat=[ns]"});
    EXPECT_EQ(run.Import(), RowWithoutTime(4));
}

// A column "n" with these cells behind an empty line, where the analysis has ended and settled no unit.
std::string ImportAs(ECsvDataType type, const std::string& cells) {
    ImportRun run("n;\n\n" + cells);
    run.Column(0).UserType = type;
    return run.Import();
}

// A refused cell is quoted as its parser left it, and an empty one is no mistake.
TEST(Samples, OfRefusedCellsHaveNoValue) {
    const auto check = [](ECsvDataType type, const char* label, std::string_view rows) {
        CheckRows(rows, [&](const std::string& cell) {
            const std::string outcome = ImportAs(type, cell), sample = outcome.substr(0, 13);
            const std::size_t quote = outcome.find('\'') + 1;
            const std::string quoted = outcome.substr(quote, outcome.find("' des") - quote);
            EXPECT_EQ(outcome, sample + (quote == 0 ? "" : WrongCell(0, quoted, "n", 2, label)));
            return sample.substr(5) + (quote == 0 ? "" : quoted);
        });
    };
    check(CsvTypeBoolean, "Boolescher Wert", "2->none(1)\n2|1,5->none(1)\n1.5|\"\"->none(1)\n");
    check(CsvTypeInteger, "Ganzzahl", "x->none(8)\nx|1.2,x->none(8)\n12x|.,.->none(8)\n|\"\"->none(8)\n");
    check(CsvTypeIntegerUnit, "Ganzzahl mit Einheit", "12->none(8)\n12");
    check(CsvTypeHex, "Hexadezimalzahl", "0xg->none(8)\n0xg|1.5->none(8)\n1.5");
    check(CsvTypeFloat, "Fließkommazahl",
          "1,2,3->none(8)\n1.2.3|1.234,x->none(8)\n1234.x|%i %s->none(8)\n%i %s");
    check(CsvTypeFloatUnit, "Fließkommazahl mit Einheit", "1,5->none(8)\n1.5|\"\"->none(8)\n");
    check(CsvTypeChar, "Zeichen / Buchstabe", "xy->none(2)\nxy|\"\"->none(2)\n");
}

TEST(Samples, DropTheMarksOfIntegersAndSettleTheUnitWithTheFirstAcceptedOne) {
    EXPECT_EQ(ImportAs(CsvTypeInteger, "1.234\n12,5\n-1,234.5\n"), "n: 1=1234 2=125 3=-12345\n");
    EXPECT_EQ(ImportAs(CsvTypeIntegerUnit, "5\n1.2 kg\n13 lb\n14 kg\n"),
              "n [ kg]: 1=none(8) 2=12 3=none(8) 4=14\n" + WrongCell(0, "5", "n", 2, "Ganzzahl mit Einheit") +
                  WrongCell(0, "13 lb", "n", 4, "Ganzzahl mit Einheit"));
    EXPECT_EQ(ImportAs(CsvTypeFloatUnit, "1.5m\n3 m\n"),
              "n [m]: 1=1.5 2=none(8)\n" + WrongCell(0, "3 m", "n", 3, "Fließkommazahl mit Einheit"));
}

TEST(Samples, LeaveOtherColumnsAloneAndAUnitThatTheSignalHas) {
    ImportRun run("a;b;c\n5 kg;6;7\nx;y;8\n\n1 kg;2;z\n");
    run.Column(1).UserType = CsvTypeFloat;
    run.Column(1).UserName = u"mine";
    run.Column(0).UserType = CsvTypeIntegerUnit;
    ASSERT_TRUE(run.Filter->BeginImport());
    run.Host.Signals[0]->Unit = u"t";
    run.Host.Signals[2]->RefusesSamples = true;
    while (run.Next()) continue;
    EXPECT_EQ(run.Host.DescribeSamples(), "a [t]: 1=5 2=none(8) 3=1\nmine: 1=6 2=none(8) 3=2\nc:\n");
    EXPECT_EQ(run.Messages(), WrongCell(0, "x", "a", 3, "Ganzzahl mit Einheit") +
                                  WrongCell(1, "y", "mine", 3, "Fließkommazahl") +
                                  WrongCell(2, "z", "c", 4, "Ganzzahl"));
}

TEST(Samples, FollowTheMessageOfTheColumnBefore) {
    ImportRun run("a;b;c\n1;2;3\n\nx;5;y\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    ASSERT_TRUE(run.Next() && run.Next());
    std::string heard;
    for (std::size_t i = 0; i < 3; ++i) {
        run.Host.Signals[i]->OnSample = [&, i] {
            heard += std::to_string(i) + "> ";
            for (const ImportMessage& message : run.Filter->TakeMessages())
                heard += "message of " + std::to_string(message.Column) + " ";
        };
    }
    ASSERT_TRUE(run.Next());
    EXPECT_EQ(heard, "0> 1> message of 0 2> ");
    EXPECT_EQ(run.Messages(), WrongCell(2, "y", "c", 3, "Ganzzahl"));
}

// Another filter's dialog may hand its settings on while a run is at its third row.
TEST(Samples, FollowSettingsThatChangeDuringTheRun) {
    constexpr const char* Rows = "t;u;n\n1;1000;5\n2;2000;6\n3;3000;7\n4;4000;8\n";
    const struct {
        const char* Change;
        SettingList Settings;
        const char* Samples;  // of the columns u and n, after the change
    } cases[] = {
        {"nothing", {}, "u: 1=1000 2=2000 3=3000 4=4000\nn: 1=5 2=6 3=7 4=8\n"},
        {"the format",
         {"TimestampFormat=[µs]"},
         "u: 1=1000 2=2000 3000=3000 4000=4000\nn: 1=5 2=6 3000=7 4000=8\n"},
        {"the correction",
         {"Adjust=1", "AdjustMode=1", "AdjustTime=" + std::to_string(LocalSeconds(2000, 1, 1, 0, 0, 1))},
         "u: 1=1000 2=2000 1000000003=3000 1000000004=4000\nn: 1=5 2=6 1000000003=7 1000000004=8\n"},
        {"the time's column", {"TimeColumn=2"}, "u: 1=1000 2=2000\nn: 1=5 2=6 3000=7 4000=8\n"},
        {"to an interval",
         {"TimeSetting=1", "IntervalUnit=4"},
         "u: 1=1000 2=2000 2000=3000 3000=4000\nn: 1=5 2=6 2000=7 3000=8\n"},
        {"the separator", {"Separator=1"}, "u: 1=1000 2=2000\nn: 1=5 2=6\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Change);
        const SettingList before = {"TimeSetting=0", "TimeColumn=1", "TimestampFormat=[ns]"};
        ImportRun run(Rows, before);
        run.Host.BaseTime = 0;
        ASSERT_TRUE(run.Filter->BeginImport());
        ASSERT_TRUE(run.Next() && run.Next());
        const TestProfile profile(Joined(
            Joined({"AutoFormat=0", "Separator=0", "ImportHeader=1", "DateSetting=2", "IntervalUnit=5"},
                   before),
            c.Settings));
        CCsvImportSettings().CopyToAllInstances();
        while (run.Next()) continue;
        EXPECT_EQ(run.Host.DescribeSamples(), c.Samples);
    }
}

}  // namespace
