#include <gtest/gtest.h>

#include "kit/ColumnText.h"
#include "kit/FailingFile.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

// The columns, or "no: " and what is there of them.
std::string Analyze(CCsvImportSettings& settings, const std::u16string& text) {
    MemoryFile file(LinesOf(text));
    const bool passed = settings.AnalyzeColumns(file, nullptr, nullptr);
    return (passed ? "" : "no: ") + DescribeColumns(settings);
}

// With the semicolon, a header in line 1 and neither date nor time column unless the settings say otherwise.
std::string Analyze(const SettingList& settings, const std::u16string& text) {
    const SettingList common = {"Separator=0", "ImportHeader=1", "DateSetting=2", "TimeSetting=1"};
    CCsvImportSettings record = MakeSettings(Joined(common, settings));
    return Analyze(record, text);
}

struct Case {
    SettingList Settings;
    std::u16string Text;
    const char* Columns;
};

void CheckAll(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        std::string trace = Utf16ToUtf8(c.Text.substr(0, 60));
        for (const std::string& setting : c.Settings) trace += ' ' + setting;
        SCOPED_TRACE(trace);
        EXPECT_EQ(Analyze(c.Settings, c.Text), c.Columns);
    }
}

TEST(AnalyzeColumns, NamesEachColumn) {
    CheckAll({
        {{}, u"a;b\n6;7", "a:Integer b:Integer"},
        {{"ImportHeader=0"}, u"5;6", "Spalte 1:Integer Spalte 2:Integer"},
        {{}, u"\" a \"; b \n6;7", " a :Integer b:Integer"},
        {{}, u"a;;c\n6;7;8", "a:Integer :Integer c:Integer"},
        // Date and time columns have names of their own.
        {{"DateSetting=0", "DateColumn=2"}, u"a;b\n6;7", "a:Integer Datum:Integer"},
        {{"TimeSetting=0", "TimeColumn=1"}, u"a;b\n6;7", "Uhrzeit:Integer b:Integer"},
        {{"DateSetting=0", "DateColumn=1", "TimeSetting=0", "TimeColumn=2"},
         u"a;b\n6;7",
         "Datum:Integer Uhrzeit:Integer"},
        {{"DateSetting=0", "DateColumn=2", "TimeSetting=0", "TimeColumn=2"},
         u"a;b\n6;7",
         "a:Integer Datum / Uhrzeit:Integer"},
        {{"DateSetting=0", "DateColumn=2", "TimeColumn=2"}, u"a;b\n6;7", "a:Integer Datum:Integer"},
        {{"DateSetting=1", "DateColumn=2"}, u"a;b\n6;7", "a:Integer b:Integer"},
        {{"DateSetting=1", "DateColumn=2", "TimeSetting=0", "TimeColumn=2"},
         u"a;b\n6;7",
         "a:Integer Uhrzeit:Integer"},
        {{"ImportHeader=0", "DateSetting=0", "DateColumn=1"}, u"6;7", "Datum:Integer Spalte 2:Integer"},
        {{"DateSetting=0", "DateColumn=9"}, u"a;b\n6;7", "a:Integer b:Integer"},
    });
}

TEST(AnalyzeColumns, SettlesTheTypesFromAllRows) {
    CheckAll({
        {{}, u"a;b;c\n6;x;5 kg\n2;y;6 kg", "a:Integer b:Char c:IntegerUnit[ kg]"},
        {{}, u"a\n6\n1.5\n", "a:Float"},
        {{}, u"a;b\n6;7\n3;\n", "a:Integer b:String"},
        // The header has no influence, the first row without one has.
        {{"ImportHeader=0"}, u"a;1\n6;7", "Spalte 1:Hex Spalte 2:Integer"},
        // Lines above the first one.
        {{"FirstLine=3"}, u"x;y;z\n\na;b\n6;7", "a:Integer b:Integer"},
        // A short row leaves the other columns as they are; surplus cells lie beyond the table.
        {{}, u"a;b\n6;7\n3", "a:Integer b:Integer"},
        {{}, u"a;b\n6;7;8\n4;5", "a:Integer b:Integer | -:None"},
        {{}, u"a\n6;7;8\n4;5 kg", "a:Integer | -:None[ kg] -:None"},
        // Other separators.
        {{"Separator=3", "MergeSeparators=1"}, u"a  b\n6  7", "a:Integer b:Integer"},
        {{"Separator=4", "OtherSeparator=|x"}, u"a|bx\n6|7", "a:Integer bx:Integer"},
        {{"Separator=4"}, u"a;b\n6;7", "a;b:String"},
    });
}

TEST(AnalyzeColumns, EndsAtTheFirstEmptyLineOrRow500) {
    std::u16string rows;
    for (int i = 0; i < 499; ++i) rows += u"2\n";
    CheckAll({
        {{}, u"a\n6\n2\n\nx\n", "a:Integer"},
        {{}, u"a\n\n6\n", "-a:None"},
        // A line of blanks is one empty cell.
        {{}, u"a;b\n6;7\n   \n3;4\n", "a:String b:Integer"},
        {{}, u"a\n" + rows + u"x\n", "a:Integer"},
        {{"ImportHeader=0"}, rows + u"2\nx\n", "Spalte 1:Integer"},
        {{"ImportHeader=0"}, rows + u"x\n", "Spalte 1:Char"},
    });
}

TEST(AnalyzeColumns, MakesNoColumnToImportWithoutAType) {
    CheckAll({
        {{}, u"a;b", "-a:None -b:None"},
        {{}, u"a;b;c\n6;7", "a:Integer b:Integer -c:None"},
    });
}

TEST(AnalyzeColumns, FailsWithoutATable) {
    CheckAll({
        {{}, u"", "no: "},
        {{}, u"\na;b\n6;7", "no: "},
        {{"FirstLine=3"}, u"a;b\n6;7", "no: "},
        {{"FirstLine=4"}, u"a;b\n6;7", "no: "},
        {{"FirstLine=999"}, u"a;b\n6;7", "no: "},
    });
}

TEST(AnalyzeColumns, CountsAFirstLineBelowOneAsOne) {
    CCsvImportSettings settings = MakeSettings({"Separator=0", "DateSetting=2", "TimeSetting=1"});
    for (const int firstLine : {0, -5}) {
        settings.FirstLine = firstLine;
        EXPECT_EQ(Analyze(settings, u"a;b\n6;7"), "a:Integer b:Integer") << firstLine;
    }
}

TEST(AnalyzeColumns, PassesEveryReadErrorOn) {
    int errors = 0;
    for (bool finished = false; !finished && errors < 100;) {
        CCsvImportSettings settings = MakeSettings({"FirstLine=2"});
        FailingFile file(LinesOf(u"x\na,b\n1,2\n"), errors + 1);
        try {
            finished = settings.AnalyzeColumns(file, nullptr, nullptr);
        } catch (CFileException* error) {
            error->Delete();
            ++errors;
        }
    }
    EXPECT_EQ(errors, 4);
}

}  // namespace
