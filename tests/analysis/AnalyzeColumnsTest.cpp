#include "analysis/PreviewTableCallbacks.h"
#include "kit/CheckRows.h"
#include "kit/MemoryFile.h"
#include "kit/TestProfile.h"

namespace {

// With the semicolon, a header in line 1 and neither date nor time column.
const SettingList Common = {"Separator=0", "ImportHeader=1", "DateSetting=2", "TimeSetting=1"};

// "name:Type[unit]" of each column, "-" before one that isn't imported; behind "~" what lies beyond the
// table.
std::string Analyze(CCsvImportSettings& settings, const std::u16string& text) {
    MemoryFile file(text);
    std::string columns = settings.AnalyzeColumns(file, nullptr, nullptr) ? "" : "no: ";
    constexpr const char* Types[] = {"None", "Bool", "Int", "IntU", "Hex", "Float", "FloatU", "Char", "Str"};
    for (const auto& [index, info] : settings.ColumnMap) {
        if (index == settings.ColumnCount) columns += "~ ";
        columns += std::string(info.ImportColumn ? "" : "-") + Utf16ToUtf8(info.GetDisplayName()) + ':';
        columns += Types[info.GetEffectiveType()];
        columns += (info.Unit.empty() ? "" : '[' + Utf16ToUtf8(info.Unit) + ']') + ' ';
    }
    return columns.empty() ? "" : columns.erase(columns.size() - 1);
}

void Check(const SettingList& more, std::string_view rows) {
    CheckRows(rows, [&](const std::u16string& text) {
        CCsvImportSettings settings = MakeSettings(Joined(Common, more));
        return Analyze(settings, text);
    });
}

TEST(AnalyzeColumns, NamesEachColumn) {
    Check({}, "a;b\n6;7->a:Int b:Int|\" a \"; b \n6;7-> a :Int b:Int|a;;c\n6;7;8->a:Int :Int c:Int");
    // Date and time columns have names of their own.
    const SettingList date = {"DateSetting=0", "DateColumn=2", "TimeColumn=2"};
    Check(date, "a;b\n6;7->a:Int Datum:Int|a\n6->a:Int");
    Check(Joined(date, {"TimeSetting=0", "TimeColumn=1"}), "a;b\n6;7->Uhrzeit:Int Datum:Int");
    Check(Joined(date, {"TimeSetting=0"}), "a;b\n6;7->a:Int Datum / Uhrzeit:Int");
    Check(Joined(date, {"DateSetting=1", "TimeSetting=0"}), "a;b\n6;7->a:Int Uhrzeit:Int");
    Check(Joined(date, {"ImportHeader=0"}), "6;7->Spalte 1:Int Datum:Int");
}

TEST(AnalyzeColumns, SettlesTheTypesFromAllRows) {
    // Surplus cells lie beyond the table; the first empty line ends it; a line of blanks is one empty cell.
    Check(
        {},
        "a;b;c\n6;x;5 kg\n2;y;6 kg->a:Int b:Char c:IntU[ kg]|a\n6\n1.5\n->a:Float|a;b\n6;7\n3;->a:Int b:Str|"
        "a;b\n6;7\n3->a:Int b:Int|a\n6;7;8\n4;5 kg->a:Int ~ -:None[ kg] -:None|a;b->-a:None -b:None|"
        "a;b;c\n6;7->a:Int b:Int -c:None|a\n6\n2\n\nx\n->a:Int|a\n\n6\n->-a:None|->no:|\na;b\n6;7->no:|"
        "a;b\n6;7\n   \n3;4\n->a:Str b:Int");
    Check({"ImportHeader=0"}, "a;1\n6;7->Spalte 1:Hex Spalte 2:Int");
    Check({"FirstLine=3"}, "x;y;z\n\na;b\n6;7->a:Int b:Int|a;b\n6;7->no:|a;b\n->no:");
    Check({"Separator=3", "MergeSeparators=1"}, "a  b\n6  7->a:Int b:Int");
    Check({"Separator=4", "OtherSeparator=#x"}, "a#bx\n6#7->a:Int bx:Int");
    Check({"Separator=4"}, "a;b\n6;7->a;b:Str");
    std::string rows;
    for (int i = 0; i < 499; ++i) rows += "2\n";
    Check({}, "a\n" + rows + "x\n->a:Int");
    Check({"ImportHeader=0"}, rows + "2\nx\n->Spalte 1:Int|" + rows + "x\n->Spalte 1:Char");
}

TEST(AnalyzeColumns, KeepsWhatTheUserChoseAndComparesAKeptUnit) {
    CCsvImportSettings settings = MakeSettings(Common);
    settings.FirstLine = -5;
    EXPECT_EQ(Analyze(settings, u"a;b;c\n6;7 kg;x\n"), "a:Int b:IntU[ kg] c:Char");
    EXPECT_EQ(Analyze(settings, u"d;e\n6;7 lb\n"), "d:Int e:IntU[ lb]");  // untouched columns are built anew
    settings.GetColumn(0).UserName = u"mine";
    settings.GetColumn(1).ImportColumn = false;
    EXPECT_EQ(Analyze(settings, u"c;d\nx;2\n"), "mine:Char -d:Int[ lb]");
    EXPECT_EQ(settings.GetColumn(0).DetectedName, u"c");
    settings.GetColumn(0).UserType = CsvTypeString;
    EXPECT_EQ(Analyze(settings, u"a\n1.5\n"), "mine:Str ~ -d:None[ lb]");
    EXPECT_EQ(settings.GetColumn(0).DetectedType, CsvTypeFloat);
    // A chosen type is enough for a column that the analysis can't settle; one without both is a default
    // again.
    EXPECT_EQ(Analyze(settings, u"a\n"), "mine:Str");
    EXPECT_EQ(Analyze(settings, u"\n"), "~ mine:Str");
    settings.FirstLine = 5;
    EXPECT_EQ(Analyze(settings, u"a;b\n6;7\n"), "no: ~ mine:Str");

    CCsvImportSettings other = MakeSettings(Common);
    EXPECT_EQ(Analyze(other, u"a\n"), "-a:None");
    other.GetColumn(0).ImportColumn = true;
    EXPECT_EQ(Analyze(other, u"a\n"), "-a:None");
    other.GetColumn(0).PreviewWidth = 80;
    other.GetColumn(0).ImportColumn = true;
    EXPECT_EQ(Analyze(other, u"a\n1 kg\n"), "a:IntU[ kg]");
    other.GetColumn(2).UserName = u"far";
    EXPECT_EQ(Analyze(other, u"a\n2 lb\n"), "a:Str[ kg] ~ -:None -far:None");
    EXPECT_EQ(other.GetColumn(0).PreviewWidth, 80);
}

// The preview's calls in their order: "+0 name;" for a column, "0,1 text;" for a cell.
struct RecordedTable : IPreviewTableCallbacks {
    bool AddColumn(std::int32_t column, const char16_t* name) override {
        return Calls += '+' + std::to_string(column) + ' ' + Utf16ToUtf8(name) + ';', false;
    }
    bool SetCell(std::int32_t row, std::int32_t column, const char16_t* text) override {
        const std::string place = std::to_string(row) + ',' + std::to_string(column);
        return Calls += place + ' ' + Utf16ToUtf8(text) + ';', false;
    }
    std::string Calls;
};

// The end of the calls and the timestamp.
TEST(AnalyzeColumns, TellsThePreviewColumnsCellsAndTheFirstTimestamp) {
    const auto check = [](const SettingList& more, std::string_view rows) {
        CheckRows(rows, [&](const std::u16string& text) {
            MemoryFile file(text);
            RecordedTable table;
            std::u16string time = u"-";
            MakeSettings(Joined(Common, more)).AnalyzeColumns(file, &table, &time);
            return (table.Calls.size() < 99 ? table.Calls : table.Calls.substr(table.Calls.size() - 8)) +
                   Utf16ToUtf8(time);
        });
    };
    std::string rows;
    for (int i = 0; i < 600; ++i) rows += "1\n";
    check({}, "a;b\n1,5;\"x;y\"\n2\n->+0 a;+1 b;0,0 1,5;0,1 x;y;1,0 2;|a;b\n->+0 a;+1 b;-|\n->-|" + rows +
                  "->498,0 1;");
    check({"ImportHeader=0"}, "5\n7;8\n->+0 Spalte 1;0,0 5;1,0 7;1,1 8;|" + rows + "->499,0 1;");
    const SettingList time = {"TimeSetting=0", "TimeColumn=2", "FirstLine=2"};
    check(
        time,
        "x\na;b\n1;2\n3;4\n->+0 a;+1 Uhrzeit;0,0 1;0,1 2;1,0 3;1,1 4;2|x\na\n1\n->+0 a;0,0 1;|x\n\n1;2\n->-");
    check(Joined(time, {"DateSetting=0"}), "x\na;b\n1;2\n->+0 Datum;+1 Uhrzeit;0,0 1;0,1 2;1;2");
}

// What single cells, parted by semicolons, make of one column: the types left, the detected one, the unit.
TEST(AnalyzeCell, NarrowsTheTypesCellByCell) {
    CheckRows(
        "0->124578 1|1->124578 1|1.0->158 1|2->24578 2|-5->2458 2|12.5->58 5|12,5->58 5|1.234,5->58 5|"
        "1,234.5->58 5|1,234,567->8 8|true->18 1|FALSE->18 1|x->78 7|a->478 4|ff->478 4|$FF->478 4|->8 8|"
        "16#1F->478 4|$->78 7|12 kg->368 3 kg|12kg->368 3kg|12.5 kg->68 6 kg|12,5 kg->68 6 kg|12:30->8 8|"
        "0;1;0->124578 1|1;2->24578 2|12;12.5->58 5|12;12.5;abc->8 8|1;abc->478 4|1e5;2e5->4578 4|5;;6->8 8|"
        // The first acceptable suffix is the unit, whatever becomes of the types.
        "0xff->34578 3xff|0xff;0xfe->4578 4xff|16#FF;16#FE->478 4#FF|12 kg;12.5 kg->68 6 kg|"
        "12 kg;13 lb->8 8 kg|12 kg;12->8 8 kg|12 kg;12 KG->8 8 kg|abc;12 kg->8 8 kg|"
        // Nothing that ends in a digit is one, but what comes later may be.
        "a b;v 7;12.5;12 kg;13->8 8 kg|a b;12 5;7,->8 8|a b;7 kg9;7 9x->8 8",
        [](std::u16string cells) {
            CCsvImportSettings settings = MakeSettings();
            CCsvColumnInfo& info = settings.GetColumn(3);
            info.TypeCandidates.fill(true);
            for (cells += u';'; !cells.empty(); cells.erase(0, cells.find(u';') + 1)) {
                settings.AnalyzeCell(3, cells.substr(0, cells.find(u';')).c_str());
            }
            std::string text;
            for (std::size_t i = 0; i < CsvTypeCount; ++i) {
                if (info.TypeCandidates[i]) text += std::to_string(i + 1);
            }
            return text + ' ' + std::to_string(info.DetectedType) + Utf16ToUtf8(info.Unit);
        });
    // A long cell is judged by its beginning.
    CCsvImportSettings settings = MakeSettings();
    settings.GetColumn(0).TypeCandidates.fill(true);
    settings.AnalyzeCell(0, (std::u16string(510, u'0') + u"xyz").c_str());
    EXPECT_EQ(settings.GetColumn(0).Unit, u"x");
}

}  // namespace
