// The sidecar: reading both revisions, conversions, round trips, and writing that fails.
#include "settings/CsvInfoFile.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <random>
#include <sstream>

#include "contract/TimeStamp.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

// The settings that a sidecar holds, moments as what counts of them.
std::string Shown(const CCsvImportSettings& s) {
    std::ostringstream out;
    out.precision(17);
    out << s.Separator << Utf16ToUtf8(s.OtherSeparator) << ' ' << s.FirstLine << ' ' << s.ImportHeader
        << s.MergeSeparators << ' ' << s.DateSetting << s.TimeSetting << s.TimeColumn << ' '
        << s.IntervalValue << ' ' << s.IntervalUnit << ' ' << Utf16ToUtf8(s.TimestampFormat);
    if (s.DateSetting == 0) out << " column " << s.DateColumn;
    if (s.DateSetting == 1) out << " start " << CTimeStamp(CTime{s.StartDate}).DateToTIME();
    if (s.Adjust) out << " adjust " << s.AdjustMode << CTimeStamp(CTime{s.AdjustTime}).DaytimeToTIME(true);
    return out.str();
}

std::string Revision2(const std::string& elements) {
    return "<CSV-INFO format-rev='2'><START-LINE>2</START-LINE><SEPARATOR>;</SEPARATOR>"
           "<DELIMITER-DECIMAL-POINT>,</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>.</DELIMITER-MIL>" +
           elements + "</CSV-INFO>";
}

}  // namespace

TEST(CsvInfoFile, ReadsBothRevisions) {
    const struct {
        std::string Bytes;
        int Errors;
        const char* Outcome;
    } cases[] = {
        {"<CSV-INFO><LINE-NUMBER-HEADER> 4 </LINE-NUMBER-HEADER><DELIMETER-COUMNS>;</DELIMETER-COUMNS>\n"
         "<DELIMETER-DECIMAL-POINT>,</DELIMETER-DECIMAL-POINT><DELIMETER-MIL-POINT>.</DELIMETER-MIL-POINT>\n"
         "<SIGNAL-NAME-TIME>0</SIGNAL-NAME-TIME></CSV-INFO>",
         0, "0 5 10 201 1 2 [s],000"},
        {Revision2("<START-DATE>2024-02-30</START-DATE><TIME-ADJUST>24:00:00</TIME-ADJUST>"), 0,
         "0 3 10 201 1 2 [s],000 adjust 0"},
        {Revision2(
             "<TIMESTAMP-FORMAT>hh</TIMESTAMP-FORMAT><DATE-SETTING>0</DATE-SETTING><DATE-COLUMN>4"
             "</DATE-COLUMN><IMPORT-HEADER>1</IMPORT-HEADER><MERGE-SEPARATORS>TRUE</MERGE-SEPARATORS>"
             "<TIME-COLUMN>1</TIME-COLUMN><TIME-COLUMN>9</TIME-COLUMN><X><TIME-SETTING>1</TIME-SETTING></X>"),
         0, "0 3 01 002 1 2 hh column 5"},
        {"<CSV-INFO><DELIMETER-COUMNS>\t</DELIMETER-COUMNS></CSV-INFO>", 3, "2"},
        {"<CSV-INFO><DELIMETER-COUMNS/></CSV-INFO>", 3, "1 2"},
        {"<CSV-INFO><DELIMETER-COUMNS>|;</DELIMETER-COUMNS></CSV-INFO>", 3, "4|; 2"},
        {"<CSV-INFO format-rev='3'><START-LINE>9</START-LINE></CSV-INFO>", 0, "1 2 10 001 1 2  column 1"},
        {"<CSV-INFO format-rev='2'><START-LINE>x</START-LINE></CSV-INFO>", 4, ""},
        {"<CSV-INFO>\n <START-LINE>1</START-LINE>\n <X></Y></CSV-INFO>", 2, ""}};
    const Workdir folder;
    CCsvInfoFile file(u"no file");
    EXPECT_EQ(file.Read(), -1);
    for (const auto& c : cases) {
        folder.Write("a.csv.info", c.Bytes);
        file = CCsvInfoFile(folder.Path("a.csv"));
        EXPECT_EQ(file.Read(), c.Errors) << file.GetDiagnosis().Reason;
        CCsvImportSettings settings;
        settings.StartDate = settings.AdjustTime = 12345;
        file.ApplyToSettings(settings);
        EXPECT_EQ(Shown(settings).substr(0, std::strlen(c.Outcome)), c.Outcome);
        EXPECT_TRUE(settings.StartDate == 12345 && settings.AdjustTime == 12345);
    }
    EXPECT_TRUE(file.GetDiagnosis().Line == 3 && file.GetDiagnosis().Column == 7) << "of the last one";
}

TEST(CsvInfoFile, GivesBackWhatItWasGiven) {
    const Workdir folder;
    std::mt19937 random(7);
    const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
    for (int i = 0; i < 300; ++i) {
        CCsvImportSettings s, read;
        s.Separator = below(5), s.MergeSeparators = below(2), s.FirstLine = 1 + below(999);
        s.OtherSeparator = s.Separator == 4 ? u"&" : u"";
        s.DateSetting = below(3), s.DateColumn = 1 + below(999), s.StartDate = below(2'000'000'000);
        s.TimeSetting = s.DateSetting == 0 ? 0 : below(2), s.TimeColumn = 1 + below(999);
        s.IntervalValue = below(1'000'000) / 997.0 + 0.001, s.IntervalUnit = below(6);
        s.Adjust = below(2), s.AdjustTime = below(2'000'000'000), s.AdjustMode = below(3);
        s.TimestampFormat =
            std::u16string(u"[µs]<&\">' \t x \n😀]]>").substr(static_cast<std::size_t>(below(14)));
        CCsvInfoFile file(folder.Path("a.csv")), again(folder.Path("a.csv"));
        file.TakeFromSettings(s);
        file.Write();
        EXPECT_EQ(again.Read(), 0);
        again.ApplyToSettings(read);
        ASSERT_EQ(Shown(read), Shown(s)) << folder.Read("a.csv.info");
    }
}

TEST(CsvInfoFile, TakesSettingsThatAreNone) {
    const Workdir folder;
    CCsvImportSettings settings, read;
    settings.StartDate = settings.AdjustTime = INT64_MAX;
    settings.Separator = -1, settings.IntervalUnit = 9, settings.Adjust = settings.DateSetting = 1;
    settings.FirstLine = INT_MIN;
    CCsvInfoFile file(folder.Path("a.csv"));
    file.TakeFromSettings(settings);
    EXPECT_TRUE(file.StartDateText.empty() && file.TimeAdjustText.empty()) << "a moment beyond the calendar";
    file.Write();
    EXPECT_EQ(file.Read(), 0);
    file.ApplyToSettings(read);
    EXPECT_TRUE(read.FirstLine == INT_MIN && read.Separator == 1 && read.IntervalUnit == 2 &&
                read.Adjust == 0);
}

TEST(SidecarWriting, KeepsThePermissionsAndFailsQuietly) {
    const Workdir folder;
    const CCsvInfoFile file(folder.Path("a.csv"));
    file.Write();
    permissions(folder.NativePath("a.csv.info"), std::filesystem::perms(0640));
    file.Write();
    EXPECT_EQ(status(folder.NativePath("a.csv.info")).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(CCsvInfoFile(folder.Path("missing/a.csv")).Write(), 0) << "the import works without a sidecar";
}
