// Which lines are rows, how they are counted, and how a run ends.
#include <gtest/gtest.h>

#include "kit/ImportRun.h"
#include "kit/LocalMoment.h"
#include "kit/ReadFault.h"

namespace {

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(ReadLoop, StepsOverBlankLines) {
    struct Case {
        const char* Bytes;
        SettingList Settings;
        const char* Samples;
    };
    const Case cases[] = {
        {"a;b\n5;6\n\n7;8\n", {}, "a: 1=5 2=7\nb: 1=6 2=8\n"},
        {"a;b\n5;6\n\n \t \n\n7;8\n\n\n", {}, "a: 1=5 2=7\nb: 1=6 2=8\n"},
        {"a;b\r\n5;6\r\n\r\n7;8", {}, "a: 1=5 2=7\nb: 1=6 2=8\n"},
        // Blank in the middle of a run at an interval leaves no gap; a row of empty cells is one.
        {"a;b\n5;6\n\n;\n7;8\n", {}, "a: 1=5 2=none(8) 3=7\nb: 1=6 2=none(8) 3=8\n"},
        {"a;b\n5;6\n\n\"\"\n7;8\n", {}, "a: 1=5 2=none(8) 3=7\nb: 1=6 2=none(8) 3=8\n"},
        // White space that separates: several empty cells, or one if they merge.
        {"a\tb\n5\t6\n\n\t\n", {"Separator=2"}, "a: 1=5 2=none(8)\nb: 1=6 2=none(8)\n"},
        {"a b\n5 6\n\n   \n7 8\n", {"Separator=3", "MergeSeparators=1"}, "a: 1=5 2=7\nb: 1=6 2=8\n"},
        // A single cell keeps its value, blanks before it or not.
        {"a\n5\n   6\n7   \n", {}, "a: 1=5 2=6 3=7\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Bytes);
        ImportRun run(c.Bytes, c.Settings);
        // The types of the rows above the first empty line.
        for (const int column : {0, 1}) run.Settings().GetColumn(column).UserType = CsvTypeInteger;
        EXPECT_EQ(run.Import(), c.Samples);
    }
}

TEST(ReadLoop, CountsRowsAndNotBlankLines) {
    ImportRun run("a\n5\n\n\nx\n\ny\n");
    EXPECT_EQ(run.Import(), "a: 1=5 2=none(8) 3=none(8)\n" + WrongCell(0, "x", "a", 3, "Ganzzahl") +
                                WrongCell(0, "y", "a", 4, "Ganzzahl"));
}

TEST(ReadLoop, GoesOnBeyondTheAnalysedRows) {
    ImportRun run("a\n" + Repeated("5\n", 600) + "x\n");
    const std::string outcome = run.Import();
    EXPECT_EQ(run.Host.Signal(0).Samples.size(), 601U);
    EXPECT_EQ(outcome.substr(outcome.find('\n') + 1), WrongCell(0, "x", "a", 602, "Ganzzahl"));
}

TEST(ReadLoop, DropsRowsWithoutATime) {
    const SettingList time = {"TimeSetting=0", "TimeColumn=1", "TimestampFormat=[ns]"};
    ImportRun run("t;a\n4;5\n4;6\nx;7\n;8\n3;9\n5;10\n;\n\n6\n", time);
    run.Settings().GetColumn(1).UserType = CsvTypeInteger;
    EXPECT_EQ(run.Import(), "a: 5=5 6=10 7=none(8)\n" + RowWithoutTime(3) + RowWithoutTime(4) +
                                RowWithoutTime(5) + RowWithoutTime(6) + RowWithoutTime(8));
    // A row that lacks its time column.
    SettingList second = time;
    second[1] = "TimeColumn=2";
    ImportRun shortRow("a;t\n5;4\n6\n7;5\n", second);
    shortRow.Settings().GetColumn(0).UserType = CsvTypeInteger;
    EXPECT_EQ(shortRow.Import(), "a: 5=5 6=7\n" + RowWithoutTime(3));
}

TEST(ReadLoop, DropsEveryRowWhileNoFormatIsSet) {
    ImportRun run("a;b\n5;6\n7;8\n", {"DateSetting=0", "TimeSetting=0"});
    EXPECT_EQ(run.Import(), "b:\n" + RowWithoutTime(2) + RowWithoutTime(3));
}

TEST(ReadLoop, JoinsDateAndTimeInTheOrderOfTheColumns) {
    ImportRun run("t;a;d\n12:30;5;1.2.2020\n12:31;6;1.2.2020\n",
                  {"DateSetting=0", "DateColumn=3", "TimeSetting=0", "TimeColumn=1",
                   "TimestampFormat=hh:mm; TT.MM.JJJJ"});
    run.Import();
    ASSERT_EQ(run.Host.Signal(0).Samples.size(), 2U);
    const std::int64_t noon = LocalTime64(2020, 2, 1) + 45'000'000'000'000;
    EXPECT_EQ(run.Host.Signal(0).Samples[0].Time, noon);
    EXPECT_EQ(run.Host.Signal(0).Samples[1].Time, noon + 60'000'000'000);
}

TEST(ReadLoop, WarnsOfEveryRowBefore1990) {
    ImportRun run("a\n5\n6\n7\n", {"DateSetting=0", "DateColumn=9", "IntervalUnit=2"});
    EXPECT_EQ(run.Import(),
              "a: 1000000000=6 2000000000=7\n" + Before1990 + RowWithoutTime(2) + Before1990 + Before1990);
}

TEST(ReadLoop, StartsAtTheFixedDateWithAndWithoutAHeader) {
    for (const char* header : {"ImportHeader=1", "ImportHeader=0"}) {
        ImportRun run("4\n5\n6\n",
                      {header, "DateSetting=1", "StartDate=2020-02-01 12:00:00", "IntervalUnit=2"});
        run.Import();
        const std::int64_t midnight = LocalTime64(2020, 2, 1);
        ASSERT_GE(run.Host.Signal(0).Samples.size(), 2U);
        EXPECT_EQ(run.Host.Signal(0).Samples[0].Time, midnight);
        EXPECT_EQ(run.Host.Signal(0).Samples[1].Time, midnight + 1'000'000'000);
    }
}

// The percentages told, as "line:percentage".
std::string ProgressOf(const std::string& bytes, const SettingList& settings = {"ImportHeader=0"}) {
    ImportRun run(bytes, settings);
    EXPECT_TRUE(run.Filter->BeginImport());
    std::string text;
    const std::uint32_t untouched = run.Progress;
    for (int line = 1; run.Next(); ++line, run.Progress = untouched) {
        if (run.Progress == untouched) continue;
        text += std::to_string(line) + ':' + std::to_string(run.Progress) + ' ';
    }
    return text;
}

TEST(ReadLoop, TellsThePercentageEveryHundredLines) {
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 99)), "");
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 100)), "100:100 ");
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 250)), "100:40 200:80 ");
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 150)), "100:66 ");
    // With a header the hundredth line of the file is the 99th row.
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 250), {"ImportHeader=1"}), "99:40 199:80 ");
    // Before the row is looked at, so also if it fails.
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 250), {"ImportHeader=0", "TimeSetting=0"}), "100:40 200:80 ");
    // At a blank line the count stands still, and the percentage is told again.
    EXPECT_EQ(ProgressOf(Repeated("5;6\n", 99) + "   \n   \n" + Repeated("5;6\n", 99)),
              "100:50 101:50 102:51 ");
}

TEST(ReadLoop, EndsAtAReadErrorAndKeepsWhatThereIs) {
    // More than the reader holds at a time.
    const std::string row = "5;" + std::string(1000, 'x') + '\n';
    ImportRun run(Repeated(row, 1000));
    ASSERT_TRUE(run.Filter->BeginImport());
    ASSERT_TRUE(run.Next());
    ASSERT_TRUE(BreakReading(run.Folder.NativePath("data.csv")));
    run.ReadAll();
    EXPECT_EQ(run.Messages(), ReadError);
    const std::size_t samples = run.Host.Signal(0).Samples.size();
    EXPECT_GT(samples, 1U);
    EXPECT_LT(samples, 1000U);
    EXPECT_EQ(run.Host.Signal(1).Samples.size(), samples);
    run.Filter->EndImport();
    EXPECT_EQ(run.Messages(), "");
}

}  // namespace
