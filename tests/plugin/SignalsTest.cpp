#include <gtest/gtest.h>

#include "kit/ImportRun.h"

namespace {

std::string SignalsOf(ImportRun& run) {
    EXPECT_TRUE(run.Filter->BeginImport()) << run.Messages();
    return run.Host.DescribeSignals();
}

std::string SignalsOf(std::string_view bytes, const SettingList& settings = {}) {
    ImportRun run(bytes, settings);
    return SignalsOf(run);
}

TEST(Signals, HaveTheTypeOfTheirColumn) {
    EXPECT_EQ(SignalsOf("b;i;iu;h;f;fu;c;s\ntrue;5;5 kg;$FF;1.5;1.5 m;x;abx\n"),
              "Spalte 1 \"b\" Bool 1\n"
              "Spalte 2 \"i\" Int64 8\n"
              "Spalte 3 \"iu\" Int64 8\n"
              "Spalte 4 \"h\" Int64 8 0 <GuiSignal DirBlockId=\"4026531844\">"
              "<Plugin id=\"1\"><Hex>1</Hex></Plugin></GuiSignal>\n"
              "Spalte 5 \"f\" Double 8\n"
              "Spalte 6 \"fu\" Double 8\n"
              "Spalte 7 \"c\" Char16 2\n"
              "Spalte 8 \"s\" String variable\n");
}

TEST(Signals, HaveANameByNumberAndASymbolByTheSettings) {
    // Equal names in the file, an empty one, and none.
    EXPECT_EQ(SignalsOf("a;a;\n5;6;7\n"),
              "Spalte 1 \"a\" Int64 8\nSpalte 2 \"a\" Int64 8\nSpalte 3 \"\" Int64 8\n");
    EXPECT_EQ(SignalsOf("5;6\n7;8\n", {"ImportHeader=0"}),
              "Spalte 1 \"Spalte 1\" Int64 8\nSpalte 2 \"Spalte 2\" Int64 8\n");

    ImportRun run("a;b\n5;6\n");
    run.Settings().GetColumn(1).UserName = u"mine";
    EXPECT_EQ(SignalsOf(run), "Spalte 1 \"a\" Int64 8\nSpalte 2 \"mine\" Int64 8\n");
}

TEST(Signals, FollowTheUsersChoices) {
    ImportRun run("a;b;c\n5;6;7\n");
    ASSERT_TRUE(run.Filter->AnalyzeFile());
    run.Settings().GetColumn(0).ImportColumn = false;
    run.Settings().GetColumn(2).UserType = CsvTypeString;
    EXPECT_EQ(SignalsOf(run), "Spalte 2 \"b\" Int64 8\nSpalte 3 \"c\" String variable\n");
}

TEST(Signals, AreNotMadeOfDateAndTime) {
    const char* const bytes = "a;b;c\n5;6;7\n";
    EXPECT_EQ(SignalsOf(bytes, {"DateSetting=0", "DateColumn=1", "TimeSetting=0", "TimeColumn=3"}),
              "Spalte 2 \"b\" Int64 8\n");
    EXPECT_EQ(SignalsOf(bytes, {"DateSetting=1", "DateColumn=1", "TimeSetting=0", "TimeColumn=3"}),
              "Spalte 1 \"a\" Int64 8\nSpalte 2 \"b\" Int64 8\n");
    EXPECT_EQ(SignalsOf(bytes, {"DateSetting=0", "DateColumn=9"}),
              "Spalte 1 \"a\" Int64 8\nSpalte 2 \"b\" Int64 8\nSpalte 3 \"c\" Int64 8\n");
}

// A time column is enough for a run: it checks the rows' times.
TEST(Signals, MayBeNoneAtAll) {
    ImportRun run("t\n5\n7\n7\n9\n", {"TimeSetting=0", "TimestampFormat=[ns]"});
    EXPECT_EQ(run.Import(), RowWithoutTime(4));
    EXPECT_EQ(run.Host.SignalCount(), 0U);
}

TEST(Signals, HaveNoUnitBeforeTheirFirstSample) {
    ImportRun run("a\n5 kg\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    EXPECT_EQ(run.Host.Signal(0).UnitsSet, 0);
    ASSERT_TRUE(run.Next());
    EXPECT_EQ(run.Host.DescribeSamples(), "a [ kg]: 1=5\n");
}

}  // namespace
