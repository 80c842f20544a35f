// What a new analysis keeps of the user's choices and of an earlier analysis.
#include <gtest/gtest.h>

#include "kit/ColumnText.h"
#include "kit/FailingFile.h"
#include "kit/TestProfile.h"

namespace {

class KeptColumns : public testing::Test {
  protected:
    std::string Analyze(const std::u16string& text) {
        MemoryFile file(LinesOf(text));
        const bool passed = Settings.AnalyzeColumns(file, nullptr, nullptr);
        return (passed ? "" : "no: ") + DescribeColumns(Settings);
    }
    CCsvColumnInfo& Column(int index) { return Settings.GetColumn(index); }

    CCsvImportSettings Settings =
        MakeSettings({"Separator=0", "ImportHeader=1", "DateSetting=2", "TimeSetting=1"});
};

TEST_F(KeptColumns, TheSameAnalysisGivesTheSame) {
    const std::u16string text = u"a;b;c\n6;7 kg;x\n";
    EXPECT_EQ(Analyze(text), "a:Integer b:IntegerUnit[ kg] c:Char");
    EXPECT_EQ(Analyze(text), "a:Integer b:IntegerUnit[ kg] c:Char");
}

TEST_F(KeptColumns, UntouchedColumnsAreBuiltAnew) {
    EXPECT_EQ(Analyze(u"a;b;c\n6;7 kg;x\n"), "a:Integer b:IntegerUnit[ kg] c:Char");
    EXPECT_EQ(Analyze(u"d;e\n6;7 lb\n"), "d:Integer e:IntegerUnit[ lb]");
}

TEST_F(KeptColumns, AnUncheckedColumnStaysUnchecked) {
    Analyze(u"a;b\n6;7\n");
    Column(1).ImportColumn = false;
    EXPECT_EQ(Analyze(u"c;d\n6;x\n"), "c:Integer -d:Char");
}

TEST_F(KeptColumns, ATypedNameStays) {
    Analyze(u"a;b\n6;7\n");
    Column(0).UserName = u"mine";
    EXPECT_EQ(Analyze(u"c;d\nx;2\n"), "mine:Char d:Integer");
    EXPECT_EQ(Column(0).DetectedName, u"c");
}

TEST_F(KeptColumns, AChosenTypeStaysBesideTheDetectedOne) {
    Analyze(u"a\n6\n");
    Column(0).UserType = CsvTypeString;
    EXPECT_EQ(Analyze(u"a\n1.5\n"), "a:String");
    EXPECT_EQ(DescribeType(Column(0).DetectedType, u""), "Float");
    // It is enough for a column that the analysis can't settle.
    EXPECT_EQ(Analyze(u"a\n"), "a:String");
}

TEST_F(KeptColumns, ACheckedColumnWithoutTypeIsUncheckedAgain) {
    EXPECT_EQ(Analyze(u"a\n"), "-a:None");
    Column(0).ImportColumn = true;
    EXPECT_EQ(Analyze(u"a\n"), "-a:None");
    Column(0).ImportColumn = true;
    EXPECT_EQ(Analyze(u"a\n6\n"), "a:Integer");
}

TEST_F(KeptColumns, AKeptUnitIsComparedWith) {
    Analyze(u"a\n1 kg\n");
    Column(0).PreviewWidth = 80;
    EXPECT_EQ(Analyze(u"a\n2 kg\n"), "a:IntegerUnit[ kg]");
    EXPECT_EQ(Analyze(u"a\n2 lb\n"), "a:String[ kg]");
    EXPECT_EQ(Column(0).PreviewWidth, 80);
}

TEST_F(KeptColumns, AnEntryBeyondTheTableStaysAndTheGapIsFilled) {
    Column(4).UserName = u"far";
    EXPECT_EQ(Analyze(u"a;b\n6;7\n"), "a:Integer b:Integer | -:None -:None -far:None");
    Column(4).UserType = CsvTypeFloat;
    Column(4).ImportColumn = true;
    EXPECT_EQ(Analyze(u"a;b\n6;7\n"), "a:Integer b:Integer | -:None -:None far:Float");
}

TEST_F(KeptColumns, AnEmptyTableKeepsWhatWasChosen) {
    Analyze(u"a;b\n6;7\n");
    Column(0).UserName = u"mine";
    // Without a line of interest there is no column, but an entry; above it the analysis doesn't even begin.
    EXPECT_EQ(Analyze(u"\n"), "| -mine:None");
    Settings.FirstLine = 3;
    EXPECT_EQ(Analyze(u"x\n"), "no: | -mine:None");
}

TEST_F(KeptColumns, AFailureAboveTheTableForgetsTheTypes) {
    Analyze(u"a;b\n6;7\n");
    Column(0).UserName = u"mine";
    Settings.FirstLine = 5;
    EXPECT_EQ(Analyze(u"a;b\n6;7\n"), "no: | mine:None");
}

}  // namespace
