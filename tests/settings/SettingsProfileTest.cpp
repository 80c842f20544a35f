// Settings from and to the user's profile.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "kit/TestProfile.h"
#include "platform/framework/Locale.h"
#include "settings/LiveSettings.h"

namespace {

constexpr const char16_t* Section = u"CsvImport";

// The bytes of a number as the profile keeps them.
template <class Number>
ProfileBlock BlockOf(Number number) {
    ProfileBlock block(sizeof number);
    std::memcpy(block.data(), &number, sizeof number);
    return block;
}

// A whole-number setting: its value when nothing is stored, and its bounds.
struct Range {
    const char16_t* Key;
    int CCsvImportSettings::*Field;
    int Default, Lowest, Highest;
};
constexpr Range Ranges[] = {
    {u"AutoFormat", &CCsvImportSettings::AutoFormat, 1, 0, 1},
    {u"Separator", &CCsvImportSettings::Separator, 1, 0, 4},
    {u"MergeSeparators", &CCsvImportSettings::MergeSeparators, 0, 0, 1},
    {u"FirstLine", &CCsvImportSettings::FirstLine, 1, 1, 999},
    {u"ImportHeader", &CCsvImportSettings::ImportHeader, 1, 0, 1},
    {u"DateSetting", &CCsvImportSettings::DateSetting, 0, 0, 2},
    {u"DateColumn", &CCsvImportSettings::DateColumn, 1, 1, 999},
    {u"TimeSetting", &CCsvImportSettings::TimeSetting, 0, 0, 1},
    {u"TimeColumn", &CCsvImportSettings::TimeColumn, 1, 1, 999},
    {u"IntervalUnit", &CCsvImportSettings::IntervalUnit, 2, 0, 5},
    {u"Adjust", &CCsvImportSettings::Adjust, 0, 0, 1},
    {u"AdjustMode", &CCsvImportSettings::AdjustMode, 0, 0, 2},
    {u"SaveSidecarFile", &CCsvImportSettings::SaveSidecarFile, 0, 0, 1},
};

// What a record makes of one value in the profile.
CCsvImportSettings LoadedWith(const char16_t* key, ProfileOverlay::Value value) {
    TestProfile profile;
    profile.Layer().Set(Section, key, std::move(value));
    return CCsvImportSettings();
}

}  // namespace

TEST(SettingsProfile, WholeNumbersStayInTheirRange) {
    const CCsvImportSettings defaults = MakeSettings();
    for (const Range& range : Ranges) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(range.Key)));
        EXPECT_EQ(defaults.*range.Field, range.Default) << "nothing stored";
        EXPECT_EQ(LoadedWith(range.Key, u"1").*range.Field, range.Default) << "a text stored";
        const struct {
            int Stored, Loaded;
        } cases[] = {
            {range.Lowest, range.Lowest},
            {range.Highest, range.Highest},
            {range.Lowest - 1, range.Lowest},
            {range.Highest + 1, range.Highest},
            {std::numeric_limits<int>::min(), range.Lowest},
            {std::numeric_limits<int>::max(), range.Highest},
        };
        for (const auto& c : cases) {
            EXPECT_EQ(LoadedWith(range.Key, c.Stored).*range.Field, c.Loaded) << c.Stored << " stored";
        }
    }
}

TEST(SettingsProfile, TheFormatIsTheDetectedOneAtFirst) {
    const CCsvImportSettings settings = MakeSettings({"Separator=9", "FirstLine=1000", "ImportHeader=0"});
    EXPECT_EQ(settings.DetectedSeparator, 4);
    EXPECT_EQ(settings.DetectedFirstLine, 999);
    EXPECT_EQ(settings.DetectedHeader, 0);
}

TEST(SettingsProfile, ATextIsTakenAsItIs) {
    EXPECT_EQ(MakeSettings().OtherSeparator, u"");
    EXPECT_EQ(MakeSettings().TimestampFormat, u"");
    EXPECT_EQ(LoadedWith(u"OtherSeparator", 5).OtherSeparator, u"");
    EXPECT_EQ(LoadedWith(u"OtherSeparator", u"| and more").OtherSeparator, u"| and more");
    EXPECT_EQ(LoadedWith(u"TimestampFormat", u" [µs]").TimestampFormat, u" [µs]");
}

TEST(SettingsProfile, AMomentIsABlockOfEightBytesOrNow) {
    const struct {
        const char16_t* Key;
        std::int64_t CCsvImportSettings::*Field;
    } moments[] = {{u"StartDate", &CCsvImportSettings::StartDate},
                   {u"AdjustTime", &CCsvImportSettings::AdjustTime}};
    for (const auto& moment : moments) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(moment.Key)));
        for (const std::int64_t seconds : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 62,
                                           std::numeric_limits<std::int64_t>::min()}) {
            EXPECT_EQ(LoadedWith(moment.Key, BlockOf(seconds)).*moment.Field, seconds);
        }
        const ProfileOverlay::Value others[] = {ProfileBlock(),
                                                ProfileBlock(4),
                                                ProfileBlock(7),
                                                ProfileBlock(9),
                                                ProfileBlock(16),
                                                5,
                                                std::u16string(u"12345678")};
        for (const ProfileOverlay::Value& other : others) {
            const std::int64_t before = CurrentSeconds();
            const std::int64_t loaded = LoadedWith(moment.Key, other).*moment.Field;
            EXPECT_GE(loaded, before);
            EXPECT_LE(loaded, CurrentSeconds());
        }
    }
}

TEST(SettingsProfile, TheIntervalIsABlockOfEightBytesOrOne) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    const struct {
        ProfileOverlay::Value Stored;
        double Loaded;
    } cases[] = {
        {BlockOf(0.25), 0.25},
        {BlockOf(0.0), 0.0},
        {BlockOf(-5.0), -5.0},
        {BlockOf(1e300), 1e300},
        {BlockOf(Infinity), Infinity},
        {BlockOf(-Infinity), -Infinity},
        {BlockOf(NotANumber), 1.0},
        {BlockOf(-NotANumber), 1.0},
        {BlockOf(2.5f), 1.0},
        {BlockOf(2.5L), 1.0},
        {ProfileBlock(), 1.0},
        {3, 1.0},
        {u"2.5", 1.0},
    };
    EXPECT_EQ(MakeSettings().IntervalValue, 1.0);
    for (const auto& c : cases) {
        EXPECT_EQ(LoadedWith(u"IntervalValue", c.Stored).IntervalValue, c.Loaded) << &c - cases;
    }
}

TEST(SettingsProfile, SavingWritesSeventeenKeysUnchecked) {
    CCsvImportSettings settings = MakeSettings();
    settings.AutoFormat = -3;
    settings.Separator = 77;
    settings.OtherSeparator = u"|\"";
    settings.MergeSeparators = 5;
    settings.FirstLine = 0;
    settings.ImportHeader = 2;
    settings.DateSetting = 9;
    settings.DateColumn = -1;
    settings.StartDate = -2;
    settings.TimeSetting = 8;
    settings.TimeColumn = 1000;
    settings.IntervalValue = -1.5;
    settings.IntervalUnit = 6;
    settings.Adjust = 4;
    settings.AdjustTime = 0x0102030405060708;
    settings.AdjustMode = 3;
    settings.TimestampFormat = u"[µs]";
    settings.DetectedSeparator = settings.DetectedFirstLine = settings.DetectedHeader = 55;
    settings.Description = u"not stored";
    settings.SaveSidecarFile = 1;
    TestProfile profile;
    settings.SaveToProfile();
    // Blocks in the byte order of this machine, as the profile is never carried elsewhere.
    EXPECT_EQ(profile.Written().ToText(),
              "CsvImport/Adjust=4\n"
              "CsvImport/AdjustMode=3\n"
              "CsvImport/AdjustTime=hex:0807060504030201\n"
              "CsvImport/AutoFormat=-3\n"
              "CsvImport/DateColumn=-1\n"
              "CsvImport/DateSetting=9\n"
              "CsvImport/FirstLine=0\n"
              "CsvImport/ImportHeader=2\n"
              "CsvImport/IntervalUnit=6\n"
              "CsvImport/IntervalValue=hex:000000000000f8bf\n"
              "CsvImport/MergeSeparators=5\n"
              "CsvImport/OtherSeparator=\"|\"\"\n"
              "CsvImport/Separator=77\n"
              "CsvImport/StartDate=hex:feffffffffffffff\n"
              "CsvImport/TimeColumn=1000\n"
              "CsvImport/TimeSetting=8\n"
              "CsvImport/TimestampFormat=\"[\xC2\xB5s]\"\n");

    const CCsvImportSettings again;
    EXPECT_EQ(again.Separator, 4);
    EXPECT_EQ(again.OtherSeparator, u"|\"");
    EXPECT_EQ(again.StartDate, -2);
    EXPECT_EQ(again.IntervalValue, -1.5);
    EXPECT_EQ(again.SaveSidecarFile, 0);
}

TEST(SettingsProfile, TheSidecarOptionIsSavedAloneAndReachesAllRecords) {
    TestProfile profile;
    CCsvImportSettings chosen, first, second;
    CCsvImportSettings copy = chosen;
    chosen.SaveSidecarFile = 1;
    chosen.FirstLine = 7;
    chosen.SaveSidecarOption();
    EXPECT_EQ(profile.Written().ToText(), "CsvImport/SaveSidecarFile=1\n");
    EXPECT_EQ(first.SaveSidecarFile, 1);
    EXPECT_EQ(second.SaveSidecarFile, 1);
    EXPECT_EQ(second.FirstLine, 1) << "only the option goes to the others";
    EXPECT_EQ(copy.SaveSidecarFile, 0) << "a copy is a record of its own";
}

TEST(SettingsProfile, AStoreThatRefusesChangesNothing) {
    TestProfile profile;
    profile.Written().Refuses = true;
    CCsvImportSettings chosen, other;
    chosen.SaveSidecarFile = 1;
    chosen.SaveToProfile();
    chosen.SaveSidecarOption();
    EXPECT_EQ(other.SaveSidecarFile, 1);
    EXPECT_EQ(profile.Written().ToText(), "");
}
