// Settings from and to the user's profile, the live records, and copies, which stay apart.
#include "settings/LiveSettings.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kit/TestProfile.h"
#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace {

// What a record makes of one value in the profile.
CCsvImportSettings LoadedWith(const char16_t* key, ProfileOverlay::Value value) {
    TestProfile profile;
    profile.Layer().Set(SettingsSection, key, std::move(value));
    return CCsvImportSettings();
}

}  // namespace

TEST(SettingsProfile, WholeNumbersStayInTheirRange) {
    const auto loadedWith = [](const std::string& value) {
        SettingList list;
        for (const Setting& s : SettingsTable) {
            if (s.Kind.index() == 0 && !value.empty()) list.push_back(Utf16ToUtf8(s.Key) + value);
        }
        const CCsvImportSettings settings = MakeSettings(list);
        std::string text;
        for (const Setting& s : SettingsTable) {
            const auto* const number = std::get_if<IntSetting>(&s.Kind);
            text += number ? std::to_string(settings.*number->Field) + " " : "";
        }
        return text;
    };
    EXPECT_EQ(loadedWith(""), "1 1 0 1 1 0 1 0 1 2 0 0 0 ");
    EXPECT_EQ(loadedWith("=-2147483648"), "0 0 0 1 0 0 1 0 1 0 0 0 0 ");
    EXPECT_EQ(loadedWith("=1000"), "1 4 1 999 1 2 999 1 999 5 1 2 1 ");
    EXPECT_EQ(LoadedWith(u"FirstLine", u"5").FirstLine, 1) << "a text";
    const CCsvImportSettings s = MakeSettings({"Separator=9", "FirstLine=7", "ImportHeader=0"});
    EXPECT_EQ(s.DetectedSeparator * 100 + s.DetectedFirstLine * 10 + s.DetectedHeader, 470);
}

TEST(SettingsProfile, ABlockHasEightBytes) {
    EXPECT_EQ(LoadedWith(u"StartDate", ProfileBlock(8, 0xFF)).StartDate, -1);
    EXPECT_EQ(LoadedWith(u"AdjustTime", ProfileBlock(8, 0xFE)).AdjustTime, -0x101010101010102);
    const ProfileBlock infinite{0, 0, 0, 0, 0, 0, 0xF0, 0x7F}, noNumber{0, 0, 0, 0, 0, 0, 0xF8, 0x7F};
    EXPECT_EQ(LoadedWith(u"IntervalValue", infinite).IntervalValue, HUGE_VAL);
    EXPECT_EQ(LoadedWith(u"IntervalValue", noNumber).IntervalValue, 1.0);
    EXPECT_GE(LoadedWith(u"StartDate", ProfileBlock(7)).StartDate, 1'600'000'000) << "now";
    EXPECT_GE(LoadedWith(u"AdjustTime", ProfileBlock(9)).AdjustTime, 1'600'000'000) << "now";
}

TEST(LiveSettings, SeventeenKeysAreSavedAndHandedOn) {
    TestProfile profile;
    CCsvImportSettings first, s, gone, last;
    const CCsvImportSettings copy = first;
    LeaveLiveSettings(&gone);
    EXPECT_EQ(GetLiveSettings(), (std::vector<CCsvImportSettings*>{&first, &s, &last}));
    s.AutoFormat = -3, s.Separator = 77, s.MergeSeparators = 5, s.FirstLine = 0, s.ImportHeader = 2;
    s.DateSetting = 9, s.DateColumn = -1, s.TimeSetting = 8, s.TimeColumn = 1000, s.IntervalUnit = 6;
    s.Adjust = 4, s.AdjustMode = 3, s.StartDate = -2, s.AdjustTime = 0x0102030405060708;
    s.IntervalValue = -1.5, s.OtherSeparator = u"|\"", s.TimestampFormat = u"[µs]";
    s.SaveSidecarFile = s.DetectedSeparator = s.DetectedFirstLine = s.DetectedHeader = s.ColumnCount = 55;
    s.ColumnMap[5].UserName = s.Description = u"x";
    s.SaveToProfile(), s.CopyToAllInstances();
    const std::string saved =
        "CsvImport/Adjust=4\nCsvImport/AdjustMode=3\nCsvImport/AdjustTime=hex:0807060504030201\n"
        "CsvImport/AutoFormat=-3\nCsvImport/DateColumn=-1\nCsvImport/DateSetting=9\nCsvImport/FirstLine=0\n"
        "CsvImport/ImportHeader=2\nCsvImport/IntervalUnit=6\nCsvImport/IntervalValue=hex:000000000000f8bf\n"
        "CsvImport/MergeSeparators=5\nCsvImport/OtherSeparator=\"|\"\"\nCsvImport/Separator=77\n"
        "CsvImport/StartDate=hex:feffffffffffffff\nCsvImport/TimeColumn=1000\nCsvImport/TimeSetting=8\n"
        "CsvImport/TimestampFormat=\"[µs]\"\n";
    EXPECT_EQ(profile.Written().ToText(), saved);
    EXPECT_EQ(CCsvImportSettings().OtherSeparator, u"|\"");
    for (const CCsvImportSettings* other : {&first, &last}) {
        TestProfile empty;
        other->SaveToProfile();
        EXPECT_EQ(empty.Written().ToText(), saved);
        EXPECT_TRUE(other->Description.empty() && other->ColumnMap.empty());
        EXPECT_EQ(other->DetectedSeparator + other->DetectedHeader + other->ColumnCount, 2);
    }
    s.SaveSidecarOption();
    EXPECT_EQ(last.SaveSidecarFile, profile.Written().ReadInt(SettingsSection, u"SaveSidecarFile"));
    EXPECT_EQ(copy.FirstLine + copy.SaveSidecarFile, 1) << "a copy is a record of its own";
}
