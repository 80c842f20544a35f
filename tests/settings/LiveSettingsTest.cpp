// The live records, what they hand to each other, and copies, which stay apart.
#include "settings/LiveSettings.h"

#include <gtest/gtest.h>

#include <memory>

#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

using Records = std::vector<CCsvImportSettings*>;

// All fields of a record, each with a value that `seed` sets apart.
void Fill(CCsvImportSettings& settings, int seed) {
    for (int CCsvImportSettings::*field :
         {&CCsvImportSettings::AutoFormat, &CCsvImportSettings::Separator,
          &CCsvImportSettings::DetectedSeparator, &CCsvImportSettings::MergeSeparators,
          &CCsvImportSettings::FirstLine, &CCsvImportSettings::DetectedFirstLine,
          &CCsvImportSettings::ImportHeader, &CCsvImportSettings::DetectedHeader,
          &CCsvImportSettings::DateSetting, &CCsvImportSettings::DateColumn, &CCsvImportSettings::TimeSetting,
          &CCsvImportSettings::TimeColumn, &CCsvImportSettings::IntervalUnit, &CCsvImportSettings::Adjust,
          &CCsvImportSettings::AdjustMode, &CCsvImportSettings::SaveSidecarFile,
          &CCsvImportSettings::ColumnCount}) {
        settings.*field = seed++;
    }
    settings.StartDate = seed++;
    settings.AdjustTime = seed++;
    settings.IntervalValue = seed++;
    for (std::u16string CCsvImportSettings::*field :
         {&CCsvImportSettings::OtherSeparator, &CCsvImportSettings::TimestampFormat,
          &CCsvImportSettings::Description}) {
        settings.*field = Utf8ToUtf16(std::to_string(seed++));
    }
    settings.ColumnMap.clear();
    settings.ColumnMap[seed].UserName = settings.Description;
}

// What "use as default" hands on, which is what it stores.
std::string DescribeShared(const CCsvImportSettings& settings) {
    TestProfile profile;
    settings.SaveToProfile();
    return profile.Written().ToText();
}

// What belongs to a record's own file.
std::string DescribeOwn(const CCsvImportSettings& s) {
    std::string text = Utf16ToUtf8(s.Description);
    for (const int number :
         {s.DetectedSeparator, s.DetectedFirstLine, s.DetectedHeader, s.SaveSidecarFile, s.ColumnCount}) {
        text += " " + std::to_string(number);
    }
    for (const auto& [key, column] : s.ColumnMap) {
        text += " " + std::to_string(key) + ":" + Utf16ToUtf8(column.UserName);
    }
    return text;
}

}  // namespace

TEST(LiveSettings, HoldRecordsOfTheProfileInOrder) {
    const TestProfile profile;
    CCsvImportSettings first;
    auto second = std::make_unique<CCsvImportSettings>();
    CCsvImportSettings third;
    EXPECT_EQ(GetLiveSettings(), (Records{&first, second.get(), &third}));
    {
        CCsvImportSettings copy = first;
        EXPECT_EQ(GetLiveSettings(), (Records{&first, second.get(), &third}));
        copy = third;
        third = copy;
    }
    EXPECT_EQ(GetLiveSettings(), (Records{&first, second.get(), &third})) << "a copy went";
    second.reset();
    EXPECT_EQ(GetLiveSettings(), (Records{&first, &third}));
}

TEST(LiveSettings, CopyToAllInstancesHandsOnWhatIsNoMatterOfTheFile) {
    const TestProfile profile;
    CCsvImportSettings before, source, behind;
    Fill(before, 100);
    Fill(source, 200);
    Fill(behind, 300);
    CCsvImportSettings copy = before;
    const std::string own[] = {DescribeOwn(before), DescribeOwn(source), DescribeOwn(behind)};
    const std::string shared = DescribeShared(source);
    const std::string sharedOfCopy = DescribeShared(copy);
    source.CopyToAllInstances();
    for (const CCsvImportSettings* record : {&before, &source, &behind}) {
        EXPECT_EQ(DescribeShared(*record), shared);
    }
    EXPECT_EQ(DescribeOwn(before), own[0]);
    EXPECT_EQ(DescribeOwn(source), own[1]);
    EXPECT_EQ(DescribeOwn(behind), own[2]);
    EXPECT_EQ(DescribeShared(copy), sharedOfCopy);
}

TEST(LiveSettings, ACopyIsDeepAndComesBackWhole) {
    CCsvImportSettings record = MakeSettings();
    Fill(record, 100);
    const std::string shared = DescribeShared(record);
    const std::string own = DescribeOwn(record);
    const CCsvImportSettings copy = record;
    Fill(record, 500);
    record.GetColumn(0).ImportColumn = false;
    EXPECT_EQ(DescribeShared(copy), shared);
    EXPECT_EQ(DescribeOwn(copy), own);

    record = copy;
    EXPECT_EQ(DescribeShared(record), shared);
    EXPECT_EQ(DescribeOwn(record), own) << "columns made since must be gone";

    const CCsvImportSettings& same = record;
    record = same;
    EXPECT_EQ(DescribeOwn(record), own) << "assigned to itself";
}
