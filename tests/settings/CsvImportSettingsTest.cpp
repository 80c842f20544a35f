// The operations of the record on format, columns and timestamp cells.
#include "settings/CsvImportSettings.h"

#include <gtest/gtest.h>

#include "kit/TestProfile.h"

TEST(Settings, SeparatorInForce) {
    CCsvImportSettings settings = MakeSettings();
    settings.OtherSeparator = u"|;";
    std::u16string separators;
    for (const int index : {0, 1, 2, 3, 4, 5, -1, INT32_MIN}) {
        settings.Separator = index, separators += settings.GetSeparatorChar();
    }
    EXPECT_EQ(separators, std::u16string(u";,\t |\0\0\0", 8));
}

TEST(Settings, ApplyAutoFormatTakesTheDetectedFormat) {
    for (const int detected : {0, 1, 3}) {
        for (const int automatic : {0, 1}) {
            CCsvImportSettings s = MakeSettings({"MergeSeparators=1", "FirstLine=5", "Separator=0"});
            s.AutoFormat = automatic, s.DetectedSeparator = detected;
            s.DetectedFirstLine = 9, s.DetectedHeader = 0;
            s.ApplyAutoFormat();
            const int taken = s.Separator * 100 + s.FirstLine * 10 + s.ImportHeader;
            EXPECT_EQ(taken, automatic ? detected * 100 + 90 : 51);
            EXPECT_EQ(s.MergeSeparators, !automatic || detected == SeparatorSpace);
        }
    }
}

TEST(Settings, TimestampCells) {
    const struct {
        int Date, DateColumn, Time, TimeColumn;
        const char16_t *Columns, *Text;  // which feed the timestamp, and what they give
    } cases[] = {{DateFromColumn, 1, TimeFromColumn, 2, u"01", u"one;two"},
                 {DateFromColumn, 3, TimeFromColumn, 1, u"02", u"one;three"},
                 {DateFromColumn, 4, TimeFromColumn, 1, u"0", u""},
                 {DateFromColumn, 3, TimeInterval, 1, u"2", u"three"},
                 {DateNone, 1, TimeFromColumn, 3, u"2", u"three"},
                 {DateFixed, 1, TimeFromColumn, INT32_MIN, u"", u""},
                 {DateFixed, 1, TimeInterval, 1, u"", u""}};
    std::u16string one = u"one", two = u"two", three = u"three", joined = u"of the row before";
    CCsvImportSettings settings = MakeSettings({"Separator=0"});
    for (const auto& c : cases) {
        settings.DateSetting = c.Date, settings.DateColumn = c.DateColumn;
        settings.TimeSetting = c.Time, settings.TimeColumn = c.TimeColumn;
        const std::u16string text = settings.GetTimestampText({one.data(), two.data(), three.data()}, joined);
        std::u16string columns;
        for (int i = 0; i < 3; ++i) columns += settings.IsTimestampColumn(i) ? &u"0\0001\0002"[2 * i] : u"";
        EXPECT_TRUE(text == c.Text && columns == c.Columns) << "case " << &c - cases;
    }
    settings = MakeSettings({"DateColumn=1", "TimeColumn=2", "Separator=4", "OtherSeparator=||"});
    EXPECT_EQ(std::u16string(u"one|two"), settings.GetTimestampText({one.data(), two.data()}, joined));
}

TEST(Settings, RemoveDefaultColumnsKeepsChoices) {
    CCsvImportSettings settings;
    auto& columns = settings.ColumnMap;
    for (int i = 0; i < 8; ++i) columns[i].DetectedType = i % 7 ? CsvTypeFloat : CsvTypeUndefined;
    columns[0].ImportColumn = columns[1].ImportColumn = false;
    columns[2].UserName = columns[5].DetectedName = columns[5].Unit = u"x";
    columns[3].UserType = CsvTypeString;
    columns[4].PreviewWidth = 0;
    settings.RemoveDefaultColumns();
    std::string kept;
    for (const auto& [key, column] : columns) kept += std::to_string(key * 10 + column.DetectedType) + " ";
    EXPECT_EQ(kept, "10 20 30 40 70 ");
}
