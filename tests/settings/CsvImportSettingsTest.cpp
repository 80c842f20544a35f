// The operations of the record on format, columns and timestamp cells.
#include "settings/CsvImportSettings.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/TestProfile.h"

TEST(Settings, SeparatorInForce) {
    const struct {
        int Index;
        const char16_t* Other;
        char16_t Separator;
    } cases[] = {
        {0, u"", u';'},
        {1, u"x", u','},
        {2, u"x", u'\t'},
        {3, u"x", u' '},
        {4, u"|", u'|'},
        {4, u"|;", u'|'},
        {4, u"", u'\0'},
        {5, u"|", u'\0'},
        {-1, u"|", u'\0'},
        {999, u"|", u'\0'},
        {std::numeric_limits<int>::min(), u"|", u'\0'},
    };
    CCsvImportSettings settings = MakeSettings();
    for (const auto& c : cases) {
        settings.Separator = c.Index;
        settings.OtherSeparator = c.Other;
        EXPECT_EQ(settings.GetSeparatorChar(), c.Separator) << "index " << c.Index;
    }
    EXPECT_EQ(SeparatorCharOf(3), u' ');
    EXPECT_EQ(SeparatorCharOf(4), u'\0');
    EXPECT_EQ(SeparatorCharOf(std::numeric_limits<std::uint32_t>::max()), u'\0');
}

TEST(Settings, ApplyAutoFormatTakesTheDetectedFormat) {
    for (const int detected : {0, 1, 2, 3, 4}) {
        for (const int automatic : {0, 1}) {
            SCOPED_TRACE("detected " + std::to_string(detected) + ", automatic " + std::to_string(automatic));
            CCsvImportSettings settings = MakeSettings({"MergeSeparators=1", "FirstLine=5", "Separator=0"});
            settings.AutoFormat = automatic;
            settings.DetectedSeparator = detected;
            settings.DetectedFirstLine = 9;
            settings.DetectedHeader = 0;
            settings.ApplyAutoFormat();
            EXPECT_EQ(settings.Separator, automatic ? detected : 0);
            EXPECT_EQ(settings.FirstLine, automatic ? 9 : 5);
            EXPECT_EQ(settings.ImportHeader, automatic ? 0 : 1);
            EXPECT_EQ(settings.MergeSeparators, !automatic || detected == SeparatorSpace ? 1 : 0);
        }
    }
}

TEST(Settings, TimestampColumns) {
    const struct {
        int Date, DateColumn, Time, TimeColumn;
        const char* Columns;  // of 0 to 4
    } cases[] = {
        {DateFromColumn, 1, TimeFromColumn, 3, "0 2 "},
        {DateFromColumn, 2, TimeFromColumn, 2, "1 "},
        {DateFromColumn, 1, TimeInterval, 3, "0 "},
        {DateFixed, 1, TimeFromColumn, 3, "2 "},
        {DateNone, 1, TimeFromColumn, 3, "2 "},
        {DateFixed, 1, TimeInterval, 3, ""},
        {DateNone, 1, TimeInterval, 3, ""},
        {DateFromColumn, 0, TimeFromColumn, -1, ""},
        {DateFromColumn, 6, TimeFromColumn, 999, ""},
    };
    CCsvImportSettings settings = MakeSettings();
    for (const auto& c : cases) {
        settings.DateSetting = c.Date;
        settings.DateColumn = c.DateColumn;
        settings.TimeSetting = c.Time;
        settings.TimeColumn = c.TimeColumn;
        std::string columns;
        for (int column = 0; column < 5; ++column) {
            if (settings.IsTimestampColumn(column)) columns += std::to_string(column) + " ";
        }
        EXPECT_EQ(columns, c.Columns) << "case " << &c - cases;
    }
}

TEST(Settings, RemoveDefaultColumnsKeepsChoices) {
    const struct {
        const char* What;
        bool Import;
        const char16_t* UserName;
        ECsvDataType Detected, User;
        int Width;
        bool Stays;
    } cases[] = {
        {"column with a type", true, u"", CsvTypeFloat, CsvTypeUndefined, -1, false},
        {"column without type", false, u"", CsvTypeUndefined, CsvTypeUndefined, -1, false},
        {"switched off by the user", false, u"", CsvTypeFloat, CsvTypeUndefined, -1, true},
        {"switched on by the user", true, u"", CsvTypeUndefined, CsvTypeUndefined, -1, true},
        {"named", true, u"x", CsvTypeFloat, CsvTypeUndefined, -1, true},
        {"typed", true, u"", CsvTypeFloat, CsvTypeString, -1, true},
        {"made wider", true, u"", CsvTypeFloat, CsvTypeUndefined, 80, true},
        {"made narrow", true, u"", CsvTypeFloat, CsvTypeUndefined, 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        CCsvImportSettings settings = MakeSettings();
        CCsvColumnInfo& column = settings.GetColumn(7);
        column.ImportColumn = c.Import;
        column.UserName = c.UserName;
        column.DetectedName = u"detected";
        column.Unit = u"V";
        column.DetectedType = c.Detected;
        column.UserType = c.User;
        column.PreviewWidth = c.Width;
        settings.RemoveDefaultColumns();
        ASSERT_EQ(settings.ColumnMap.count(7), c.Stays ? 1u : 0u);
        if (!c.Stays) continue;
        EXPECT_EQ(settings.GetColumn(7).DetectedType, CsvTypeUndefined);
        EXPECT_EQ(settings.GetColumn(7).UserType, c.User);
        EXPECT_EQ(settings.GetColumn(7).ImportColumn, c.Import);
        EXPECT_EQ(settings.GetColumn(7).Unit, u"V");
    }
}

TEST(Settings, RemoveDefaultColumnsTakesSeveralAtOnce) {
    CCsvImportSettings settings = MakeSettings();
    for (int column = 0; column < 6; ++column) settings.GetColumn(column).DetectedType = CsvTypeInteger;
    settings.GetColumn(2).UserName = u"kept";
    settings.RemoveDefaultColumns();
    EXPECT_EQ(settings.ColumnMap.size(), 1u);
    EXPECT_EQ(settings.ColumnMap.begin()->first, 2);
}

TEST(Settings, TimestampText) {
    constexpr int Least = std::numeric_limits<int>::min();
    const struct {
        int Date, DateColumn, Time, TimeColumn;
        std::u16string Text;  // of the row "one;two;three"
    } cases[] = {
        // both from columns, in column order
        {DateFromColumn, 1, TimeFromColumn, 2, u"one;two"},
        {DateFromColumn, 2, TimeFromColumn, 1, u"one;two"},
        {DateFromColumn, 3, TimeFromColumn, 1, u"one;three"},
        {DateFromColumn, 2, TimeFromColumn, 2, u"two"},
        {DateFromColumn, 4, TimeFromColumn, 1, u""},
        {DateFromColumn, 1, TimeFromColumn, 4, u""},
        {DateFromColumn, 4, TimeFromColumn, 4, u""},
        {DateFromColumn, 0, TimeFromColumn, 1, u""},
        {DateFromColumn, 1, TimeFromColumn, 0, u""},
        // the date alone
        {DateFromColumn, 3, TimeInterval, 1, u"three"},
        {DateFromColumn, 3, TimeInterval, 9, u"three"},
        {DateFromColumn, 4, TimeInterval, 1, u""},
        // the time alone
        {DateFixed, 9, TimeFromColumn, 2, u"two"},
        {DateNone, 1, TimeFromColumn, 3, u"three"},
        {DateNone, 1, TimeFromColumn, 4, u""},
        {DateFixed, 1, TimeFromColumn, -1, u""},
        {DateNone, 1, TimeFromColumn, Least, u""},
        {DateFromColumn, Least, TimeFromColumn, Least, u""},
        // neither
        {DateFixed, 1, TimeInterval, 1, u""},
        {DateNone, 1, TimeInterval, 1, u""},
    };
    std::u16string one = u"one", two = u"two", three = u"three", text = u"of the row before";
    const CellList cells = {one.data(), two.data(), three.data()};
    CCsvImportSettings settings = MakeSettings({"Separator=0"});
    for (const auto& c : cases) {
        settings.DateSetting = c.Date;
        settings.DateColumn = c.DateColumn;
        settings.TimeSetting = c.Time;
        settings.TimeColumn = c.TimeColumn;
        settings.GetTimestampText(cells, text);
        EXPECT_EQ(text, c.Text) << "case " << &c - cases;
        settings.GetTimestampText({}, text);
        EXPECT_EQ(text, u"") << "no cells, case " << &c - cases;
    }
}

TEST(Settings, TimestampTextIsJoinedByTheSeparator) {
    std::u16string date = u"d", time = u"", text;
    CCsvImportSettings settings = MakeSettings({"DateColumn=1", "TimeColumn=2", "Separator=2"});
    settings.GetTimestampText({date.data(), time.data()}, text);
    EXPECT_EQ(text, u"d\t");
    settings.Separator = SeparatorOther;
    settings.OtherSeparator = u"||";
    settings.GetTimestampText({date.data(), time.data()}, text);
    EXPECT_EQ(text, u"d|");
    settings.OtherSeparator = u"";
    settings.GetTimestampText({date.data(), date.data()}, text);
    EXPECT_EQ(text, std::u16string(u"d\0d", 3));
}

TEST(Settings, PreviewWidthsOfUntouchedColumns) {
    CCsvImportSettings settings = MakeSettings();
    EXPECT_EQ(settings.GetPreviewWidth(3, 55), 55);
    EXPECT_EQ(settings.ColumnMap.count(3), 1u);
    settings.SetPreviewWidth(3, 0);
    EXPECT_EQ(settings.GetPreviewWidth(3, 55), 0);
    settings.SetPreviewWidth(4, -1);
    EXPECT_EQ(settings.GetPreviewWidth(4, 55), 55);
}
