// The sidecar: reading both revisions, conversions, round trips.
#include "settings/CsvInfoFile.h"

#include <gtest/gtest.h>

#include <random>

#include "host/TimeStamp.h"
#include "kit/Workdir.h"
#include "settings/SettingsTable.h"

namespace {

// The settings that a sidecar holds, as short text; moments as what counts of them.
std::string Shown(const CCsvImportSettings& s) {
    const auto text = [](const std::u16string& t) { return std::string(t.begin(), t.end()); };
    std::string shown = "sep " + std::to_string(s.Separator) + text(s.OtherSeparator) + " line " +
                        std::to_string(s.FirstLine) + " header " + std::to_string(s.ImportHeader) +
                        " merge " + std::to_string(s.MergeSeparators) + " date " +
                        std::to_string(s.DateSetting);
    if (s.DateSetting == 0) shown += " column " + std::to_string(s.DateColumn);
    if (s.DateSetting == 1) shown += " start " + std::to_string(CTimeStamp(CTime{s.StartDate}).DateToTIME());
    shown += " time " + std::to_string(s.TimeSetting) + " column " + std::to_string(s.TimeColumn) +
             " every " + std::to_string(s.IntervalValue) + " unit " + std::to_string(s.IntervalUnit);
    if (s.Adjust != 0) {
        shown += " adjust " + std::to_string(s.AdjustMode) + " by " +
                 std::to_string(CTimeStamp(CTime{s.AdjustTime}).DaytimeToTIME(true));
    }
    return shown + " format " + text(s.TimestampFormat);
}

// A revision 2 sidecar with these elements behind the required ones.
std::string Revision2(const std::string& elements) {
    return "<CSV-INFO format-rev='2'><START-LINE>2</START-LINE><SEPARATOR>;</SEPARATOR>"
           "<DELIMITER-DECIMAL-POINT>,</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>.</DELIMITER-MIL>" +
           elements + "</CSV-INFO>";
}

struct ReadCase {
    const char* What;
    std::string Bytes;
    int Errors;
    const char* Outcome;  // the settings that come of it; null: not looked at
};

TEST(CsvInfoFile, ReadsBothRevisions) {
    const ReadCase cases[] = {
        {"revision 1",
         "<CSV-INFO><LINE-NUMBER-HEADER> 4 </LINE-NUMBER-HEADER><DELIMETER-COUMNS>;</DELIMETER-COUMNS>\n"
         "<DELIMETER-DECIMAL-POINT>,</DELIMETER-DECIMAL-POINT><DELIMETER-MIL-POINT>.</DELIMETER-MIL-POINT>\n"
         "<SIGNAL-NAME-TIME>0</SIGNAL-NAME-TIME></CSV-INFO>",
         0, "sep 0 line 5 header 1 merge 0 date 2 time 0 column 1 every 1.000000 unit 2 format [s],000"},
        {"revision 2 with nothing optional", Revision2(""), 0,
         "sep 0 line 3 header 1 merge 0 date 2 time 0 column 1 every 1.000000 unit 2 format [s],000"},
        {"revision 2 in any order, the first of two counting",
         Revision2(
             "<TIMESTAMP-FORMAT>hh</TIMESTAMP-FORMAT><DATE-SETTING>0</DATE-SETTING><DATE-COLUMN>4</"
             "DATE-COLUMN>"
             "<IMPORT-HEADER>1</IMPORT-HEADER><MERGE-SEPARATORS>TRUE</MERGE-SEPARATORS>"
             "<TIME-COLUMN>1</TIME-COLUMN><TIME-COLUMN>9</TIME-COLUMN><X><TIME-SETTING>1</TIME-SETTING></X>"),
         0, "sep 0 line 3 header 0 merge 1 date 0 column 5 time 0 column 2 every 1.000000 unit 2 format hh"},
        {"a malformed date and time leave the moments alone",
         Revision2("<DATE-SETTING>1</DATE-SETTING><START-DATE>2024-02-30</START-DATE><TIME-ADJUST>24:00:00</"
                   "TIME-ADJUST>"
                   "<TIME-ADJUST-MODE>2</TIME-ADJUST-MODE><TIME-INTERVAL-UNIT>d</TIME-INTERVAL-UNIT>"),
         0, nullptr},
        {"unknown revision gives the start values",
         "<CSV-INFO format-rev='3'><START-LINE>9</START-LINE></CSV-INFO>", 0,
         "sep 1 line 2 header 1 merge 0 date 0 column 1 time 0 column 1 every 1.000000 unit 2 format "},
        {"a required element is missing", "<CSV-INFO format-rev='2'><START-LINE>2</START-LINE></CSV-INFO>", 3,
         nullptr},
        {"a number that is none", Revision2("<DATE-SETTING>zero</DATE-SETTING>"), 1, nullptr},
        {"another root", "<INFO/>", 1, nullptr},
        {"an empty file", "", 2, nullptr},
        {"not well-formed", "<CSV-INFO>", 2, nullptr},
    };
    for (const ReadCase& c : cases) {
        SCOPED_TRACE(c.What);
        const Workdir folder;
        folder.Write("a.csv.info", c.Bytes);
        CCsvInfoFile file(folder.Path("a.csv"));
        EXPECT_EQ(file.Read(), c.Errors) << file.GetDiagnosis().Reason;
        CCsvImportSettings settings;
        settings.StartDate = settings.AdjustTime = 12345;
        file.ApplyToSettings(settings);
        EXPECT_EQ(settings.AutoFormat, 0);
        if (c.Outcome != nullptr) {
            EXPECT_EQ(Shown(settings), c.Outcome);
        } else if (c.Errors == 0) {
            EXPECT_EQ(settings.StartDate, 12345);
            EXPECT_EQ(settings.AdjustTime, 12345);
            EXPECT_EQ(settings.Adjust * 10 + settings.AdjustMode, 12) << "set all the same";
        }
    }
}

TEST(CsvInfoFile, TellsAMissingFileFromABadOne) {
    const Workdir folder;
    EXPECT_EQ(CCsvInfoFile(folder.Path("a.csv")).Read(), -1);
    EXPECT_EQ(CCsvInfoFile(folder.Path("")).Read(), -1);
    folder.Write("b.csv.info", "<CSV-INFO>\n <START-LINE>1</START-LINE>\n <X></Y></CSV-INFO>");
    CCsvInfoFile file(folder.Path("b.csv"));
    file.Read();
    EXPECT_EQ(file.GetDiagnosis().Line, 3);
    EXPECT_EQ(file.GetDiagnosis().Column, 7u);
}

// Separators and what a sidecar makes of them.
TEST(CsvInfoFile, KeepsSeparators) {
    struct Case {
        const char16_t* Text;
        int Separator;
        const char16_t* Other;
    };
    const Case cases[] = {{u";", 0, u"x"}, {u",", 1, u"x"}, {u"\t", 2, u"x"},  {u"-->", 2, u"x"},
                          {u" ", 3, u"x"}, {u"", 1, u""},   {u"ab", 4, u"ab"}, {u"<", 4, u"<"}};
    for (const Case& c : cases) {
        CCsvInfoFile file(u"a.csv");
        file.SeparatorText = c.Text;
        CCsvImportSettings settings;
        settings.OtherSeparator = u"x";
        file.ApplyToSettings(settings);
        EXPECT_EQ(settings.Separator, c.Separator) << std::string(c.Text, c.Text + 1);
        EXPECT_EQ(settings.OtherSeparator, c.Other);
        CCsvInfoFile again(u"a.csv");
        again.TakeFromSettings(settings);
        const bool renamed = file.SeparatorText.empty() || file.SeparatorText == u"\t";
        EXPECT_TRUE(renamed || again.SeparatorText == c.Text);
    }
}

// A record within the ranges of the dialog.
CCsvImportSettings RandomSettings(std::mt19937& random) {
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    constexpr const char16_t* Texts[] = {
        u"TT.MM.JJJJ hh:mm:ss,000", u"[µs]", u"<&\">' ", u"", u"\t x \n", u"😀]]>"};
    CCsvImportSettings s;
    s.Separator = below(5);
    s.OtherSeparator = s.Separator == 4 ? std::u16string(1, u"|/<&\"§€"[below(7)]) : u"";
    s.MergeSeparators = below(2);
    s.FirstLine = 1 + below(999);
    s.ImportHeader = 1;
    s.DateSetting = below(3);
    s.DateColumn = 1 + below(999);
    s.StartDate = below(2'000'000'000);
    s.TimeSetting = s.DateSetting == 0 ? 0 : below(2);
    s.TimeColumn = 1 + below(999);
    s.IntervalValue = std::uniform_real_distribution<double>(0.001, 1e6)(random);
    s.IntervalUnit = below(6);
    s.Adjust = below(2);
    s.AdjustTime = below(2'000'000'000);
    s.AdjustMode = below(3);
    s.TimestampFormat = Texts[below(6)];
    return s;
}

TEST(CsvInfoFile, GivesBackWhatItWasGiven) {
    const Workdir folder;
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        const CCsvImportSettings settings = RandomSettings(random);
        CCsvInfoFile file(folder.Path("a.csv"));
        file.TakeFromSettings(settings);
        EXPECT_EQ(file.Write(), 0);
        CCsvInfoFile again(folder.Path("a.csv"));
        ASSERT_EQ(again.Read(), 0) << folder.Read("a.csv.info");
        CCsvImportSettings read;
        read.OtherSeparator.clear();
        again.ApplyToSettings(read);
        ASSERT_EQ(Shown(read), Shown(settings)) << folder.Read("a.csv.info");
        ASSERT_EQ(read.TimestampFormat, settings.TimestampFormat);
        ASSERT_EQ(read.IntervalValue, settings.IntervalValue);
    }
}

TEST(CsvInfoFile, KeepsWhatOnlyTheFileKnowsAndDriftsWithoutHeader) {
    const Workdir folder;
    folder.Write("a.csv.info", Revision2("<IMPORT-HEADER>False</IMPORT-HEADER>"));
    for (int line = 3; line < 6; ++line) {
        CCsvInfoFile file(folder.Path("a.csv"));
        ASSERT_EQ(file.Read(), 0);
        EXPECT_EQ(file.DecimalPoint, u",");
        EXPECT_EQ(file.ThousandsSeparator, u".");
        CCsvImportSettings settings;
        file.ApplyToSettings(settings);
        EXPECT_EQ(settings.FirstLine, line) << "each round adds one";
        file.TakeFromSettings(settings);
        file.Write();
    }
}

}  // namespace
