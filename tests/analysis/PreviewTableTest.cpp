// What the analysis tells about columns, cells and the first timestamp on its way.
#include <gtest/gtest.h>

#include "analysis/PreviewTableCallbacks.h"
#include "kit/FailingFile.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

// The calls in their order: "+0 name" for a column, "0,1 text" for a cell.
class RecordedTable : public IPreviewTableCallbacks {
  public:
    bool AddColumn(std::int32_t column, const char16_t* name) override {
        Calls += '+' + std::to_string(column) + ' ' + Utf16ToUtf8(name) + '\n';
        return false;  // of no interest
    }
    bool SetCell(std::int32_t row, std::int32_t column, const char16_t* text) override {
        Calls += std::to_string(row) + ',' + std::to_string(column) + ' ' + Utf16ToUtf8(text) + '\n';
        LastRow = row;
        return false;
    }

    std::string Calls;
    int LastRow = -1;
};

SettingList WithSemicolon(const SettingList& settings) {
    return Joined({"Separator=0", "DateSetting=2", "TimeSetting=1"}, settings);
}

TEST(PreviewTable, GetsTheColumnsThenTheCells) {
    struct Case {
        const char* Header;
        const char16_t* Text;
        const char* Calls;
    };
    constexpr Case Cases[] = {
        {"ImportHeader=1", u"a;b\n1,5;\"x;y\"\n2\n", "+0 a\n+1 b\n0,0 1,5\n0,1 x;y\n1,0 2\n"},
        {"ImportHeader=0", u"5;6\n7;8;9\n", "+0 Spalte 1\n+1 Spalte 2\n0,0 5\n0,1 6\n1,0 7\n1,1 8\n1,2 9\n"},
        {"ImportHeader=1", u"a;b\n", "+0 a\n+1 b\n"},
        {"ImportHeader=1", u"\n", ""},
        {"ImportHeader=1", u"a\n1\n\n2\n", "+0 a\n0,0 1\n"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        CCsvImportSettings settings = MakeSettings(WithSemicolon({c.Header}));
        MemoryFile file(LinesOf(c.Text));
        RecordedTable table;
        settings.AnalyzeColumns(file, &table, nullptr);
        EXPECT_EQ(table.Calls, c.Calls);
    }
}

TEST(PreviewTable, Gets500RowsWithTheHeaderCounted) {
    std::u16string text;
    for (int i = 0; i < 600; ++i) text += u"1\n";
    for (const int header : {0, 1}) {
        CCsvImportSettings settings = MakeSettings(WithSemicolon({"ImportHeader=" + std::to_string(header)}));
        MemoryFile file(LinesOf(text));
        RecordedTable table;
        settings.AnalyzeColumns(file, &table, nullptr);
        EXPECT_EQ(table.LastRow, header ? 498 : 499);
    }
}

TEST(PreviewTable, GetsTheTimestampOfTheFirstDataRow) {
    struct Case {
        SettingList Settings;
        const char16_t* Text;
        const char* Timestamp;  // "-" stands before the analysis
    };
    const Case cases[] = {
        {{"TimeSetting=0", "TimeColumn=2"}, u"a;b\n1;2\n3;4\n", "2"},
        {{"TimeSetting=0", "TimeColumn=2", "ImportHeader=0"}, u"5;6\n1;2\n", "6"},
        {{"TimeSetting=0", "TimeColumn=2", "FirstLine=2"}, u"x\na;b\n1;2\n", "2"},
        {{"TimeSetting=0", "TimeColumn=3"}, u"a;b\n1;2\n", ""},
        {{"DateSetting=0", "DateColumn=3", "TimeSetting=0"}, u"a;b;c\n1;2;3\n", "1;3"},
        {{}, u"a;b\n1;2\n", ""},
        // Without a data row the text stays.
        {{"TimeSetting=0"}, u"a;b\n", "-"},
        {{"TimeSetting=0"}, u"a;b\n\n1;2\n", "-"},
        {{"TimeSetting=0", "FirstLine=9"}, u"a;b\n1;2\n", "-"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text) + (c.Settings.empty() ? "" : c.Settings.back()));
        CCsvImportSettings settings = MakeSettings(WithSemicolon(c.Settings));
        MemoryFile file(LinesOf(c.Text));
        std::u16string timestamp = u"-";
        settings.AnalyzeColumns(file, nullptr, &timestamp);
        EXPECT_EQ(Utf16ToUtf8(timestamp), c.Timestamp);
    }
}

}  // namespace
