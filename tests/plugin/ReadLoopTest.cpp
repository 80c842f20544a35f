// Which lines are rows, how they are counted, and how a run ends.
#include <random>

#include "kit/CheckRows.h"
#include "kit/ImportRun.h"
#include "kit/LocalMoment.h"

namespace {

std::string Repeated(const std::string& text, int times) {
    return times == 0 ? "" : text + Repeated(text, times - 1);
}

void Check(const SettingList& settings, std::string_view rows) {
    CheckRows(rows, [&](const std::string& bytes) {
        ImportRun run(bytes, settings);
        run.Column(0).UserType = run.Column(1).UserType = CsvTypeInteger;
        return run.Import();
    });
}

TEST(ReadLoop, StepsOverBlankLines) {
    // A blank line leaves no gap in the times; a row of empty cells does, also if white space separates them.
    Check({},
          "a;b\n5;6\n\n \t \n\n7;8\n\n\n->a: 1=5 2=7\nb: 1=6 2=8\n|a\r\n5\r\n\r\n  6 \r\n7->a: 1=5 2=6 3=7\n|"
          "a;b\n5;6\n\n;\n7;8\n->a: 1=5 2=none(8) 3=7\nb: 1=6 2=none(8) 3=8\n");
    Check({"Separator=2"}, "a\tb\n5\t6\n\n\t\n->a: 1=5 2=none(8)\nb: 1=6 2=none(8)\n");
    Check({"Separator=3", "MergeSeparators=1"}, "a b\n5 6\n\n   \n7 8\n->a: 1=5 2=7\nb: 1=6 2=8\n");
}

TEST(ReadLoop, CountsRowsAndNotBlankLinesBeyondTheAnalysedRows) {
    ImportRun run("a\n" + Repeated("5\n", 600) + "x\n\n\n \ny\n");
    const std::string outcome = run.Import();
    EXPECT_EQ(run.Host.Signals[0]->Count, 602);
    EXPECT_EQ(outcome.substr(outcome.find('\n') + 1),
              WrongCell(0, "x", "a", 602, "Ganzzahl") + WrongCell(0, "y", "a", 603, "Ganzzahl"));
    // The number of the first data line.
    const SettingList third = {"TimeSetting=0", "TimestampFormat=-", "FirstLine=3"};
    Check(third, "a;b\nc;d\ne;f\n5;6\n->f:\n" + RowWithoutTime(4));
    Check(Joined(third, {"ImportHeader=0"}), "a;b\nc;d\n5;6\n->Spalte 2:\n" + RowWithoutTime(3));
}

TEST(ReadLoop, DropsRowsWithoutATime) {
    const SettingList time = {"TimeSetting=0", "TimestampFormat=[ns]"};
    Check(time, "t;a\n4;5\n4;6\nx;7\n3;9\n5;10\n;\n\n6\n->a: 5=5 6=10 7=none(8)\n" + RowWithoutTime(3) +
                    RowWithoutTime(4) + RowWithoutTime(5) + RowWithoutTime(7));
    Check(Joined(time, {"TimeColumn=2"}), "a;t\n5;4\n6\n7;5\n->a: 5=5 6=7\n" + RowWithoutTime(3));
    const std::string before1990 =
        "!-1: Absolute Zeitstempel vor dem 01.01.1990 können von kelvarin nicht verarbeitet werden.\n";
    Check({"DateSetting=0", "DateColumn=9", "IntervalUnit=2"},
          "a\n5\n6\n->a: 1000000000=6\n" + before1990 + RowWithoutTime(2) + before1990);
}

// A table of a time and a column of each type, whose cells are odd and mostly refused.
std::string OddTable(std::minstd_rand& random) {
    const std::string_view cells[] = {
        "12,5",  "-7",   "1.234,5", "",     "\"a;b\"",  "\"a\"\"b\"",    "12 kg", "x",
        "0x1F",  "true", "1e400",   " 5 ",  "FALSE",    "\"\"",          "5 m",   "\"",
        "1.2.3", "\v",   "7\rno",   "1,5m", "\xC3\xA4", "5 \xE2\x82\xAC"};
    std::string text = "t;b;i;iu;h;f;fu;c;s\n";
    for (int row = 1; row <= 30; ++row) {
        text += random() % 8 == 0 ? "x" : std::to_string(row);
        const std::size_t choices = random() % 3 == 0 ? std::size(cells) : std::size(cells) - 2;
        for (std::size_t left = random() % 8 == 0 ? random() % 10 : 8; left > 0; --left)
            text.append(1, ';').append(cells[random() % choices]);
        if (random() % 16 == 0) text += ';' + std::string(random() % 200, 'z');
        text += '\n';
    }
    return text;
}

std::string ImportTyped(const std::string& bytes) {
    ImportRun run(bytes, {"TimeSetting=0", "TimestampFormat=[ns]"});
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type)
        run.Column(type).UserType = static_cast<ECsvDataType>(type);
    return run.Import();
}

TEST(ReadLoop, ReadsALineOfAsciiAsTheSameOneInUtf16) {
    std::minstd_rand random(3);
    for (int i = 0; i < 300; ++i) {
        const std::string bytes = OddTable(random);
        std::string wide = "\xFF\xFE";
        for (const char16_t unit : Utf8ToUtf16(bytes))
            wide.append(1, static_cast<char>(unit & 0xFF)).append(1, static_cast<char>(unit >> 8));
        ASSERT_EQ(ImportTyped(bytes), ImportTyped(wide)) << bytes;
    }
}

TEST(ReadLoop, JoinsDateAndTimeInTheOrderOfTheColumns) {
    const std::string noon = std::to_string(LocalTime64(2020, 2, 1, 12));
    Check({"DateSetting=0", "DateColumn=3", "TimeSetting=0", "TimestampFormat=hh:mm; TT.MM.JJJJ"},
          "t;a;d\n12:00;5;1.2.2020\n->a: " + noon + "=5\n");
    Check({"DateSetting=1", "StartDate=2020-02-01 18:00:00", "Adjust=1", "AdjustTime=2020-01-01 12:00:00"},
          "a\n5\n->a: " + noon + "=5\n");
}

TEST(ReadLoop, TellsThePercentageEveryHundredLines) {
    const auto progress = [](const std::string& bytes, const SettingList& settings = {"ImportHeader=0"}) {
        ImportRun run(bytes, settings);
        std::string text = run.Filter->BeginImport() ? "" : "not begun";
        for (int line = 1; run.Next(); ++line, run.Progress = 0) {
            if (run.Progress != 0) text += std::to_string(line) + ':' + std::to_string(run.Progress) + ' ';
        }
        return text;
    };
    EXPECT_EQ(progress(Repeated("5;6\n", 99)), "");
    EXPECT_EQ(progress(Repeated("5;6\n", 150)), "100:66 ");
    // With a header the hundredth line of the file is the 99th row; it is told also if the row fails.
    EXPECT_EQ(progress(Repeated("5;6\n", 250), {"TimeSetting=0"}), "99:40 199:80 ");
    // At a blank line the count stands still, and the percentage is told again.
    EXPECT_EQ(progress(Repeated("5;6\n", 99) + "  \n  \n" + Repeated("5;6\n", 99)), "100:50 101:50 102:50 ");
}

TEST(ReadLoop, EndsAtAReadErrorAndKeepsWhatThereIs) {
    // More than the reader holds at a time.
    ImportRun run(Repeated("5;" + std::string(1000, 'x') + '\n', 1000));
    ASSERT_TRUE(run.Filter->BeginImport() && BreakReading(run.Folder.NativePath("data.csv")));
    while (run.Next()) continue;
    run.Filter->EndImport();
    EXPECT_EQ(run.Messages(), ReadError);
    EXPECT_TRUE(run.Host.Signals[0]->Count > 1 && run.Host.Signals[0]->Count < 1000);
}

TEST(ReadLoop, BeginsAgainAfterAnyLineAndGivesTheSame) {
    const std::string bytes =
        "t;a;u;s\n" + Repeated("8;x;;\n", 3) + "9;1;5 kg;\n7;2;6 lb;\n\n10;;7;z\n11;3;8 kg\n";
    const SettingList settings = {"TimeSetting=0", "TimestampFormat=[ns]"};
    const auto begin = [](ImportRun& run) { run.Column(2).UserType = CsvTypeIntegerUnit; };
    ImportRun whole(bytes, settings);
    begin(whole);
    const std::string expected = whole.Import();
    for (int lines = 0; lines < 12; ++lines) {
        ImportRun run(bytes, settings);
        begin(run);
        ASSERT_TRUE(run.Filter->BeginImport());
        for (int i = 0; i < lines; ++i) run.Next();
        run.Filter->EndImport();
        run.Messages();
        run.Host.Signals.clear();
        EXPECT_EQ(run.Import(), expected) << "stopped behind row " << lines;
    }
}

}  // namespace
