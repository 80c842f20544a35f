#include <gtest/gtest.h>

#include "kit/ColumnText.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

// The types left, the detected one and the unit, as "124 > 1 [unit]".
std::string AnalyzeCells(const std::vector<std::u16string>& cells) {
    CCsvImportSettings settings = MakeSettings();
    CCsvColumnInfo& info = settings.GetColumn(3);
    info.TypeCandidates.fill(true);
    for (const std::u16string& cell : cells) settings.AnalyzeCell(3, cell.c_str());
    std::string text;
    for (int i = 0; i < CsvTypeCount; ++i) {
        if (info.TypeCandidates[static_cast<std::size_t>(i)]) text += std::to_string(i + 1);
    }
    text += " > " + std::to_string(info.DetectedType);
    return info.Unit.empty() ? text : text + " [" + Utf16ToUtf8(info.Unit) + ']';
}

TEST(AnalyzeCell, LeavesTheTypesThatFitOneCell) {
    struct Case {
        const char16_t* Cell;
        const char* Outcome;
    };
    constexpr Case Cases[] = {
        {u"0", "124578 > 1"},
        {u"1", "124578 > 1"},
        {u"1.0", "158 > 1"},
        {u"2", "24578 > 2"},
        {u"-5", "2458 > 2"},
        {u"12", "24578 > 2"},
        {u"12.5", "58 > 5"},
        {u"12,5", "58 > 5"},
        {u"1.234,5", "58 > 5"},
        {u"1,234.5", "58 > 5"},
        {u"1,234,567", "8 > 8"},
        {u"true", "18 > 1"},
        {u"FALSE", "18 > 1"},
        {u"x", "78 > 7"},
        {u"a", "478 > 4"},
        {u"ff", "478 > 4"},
        {u"$FF", "478 > 4"},
        {u"16#1F", "478 > 4"},
        {u"$", "78 > 7"},
        {u"12 kg", "368 > 3 [ kg]"},
        {u"12kg", "368 > 3 [kg]"},
        {u"12.5 kg", "68 > 6 [ kg]"},
        {u"12,5 kg", "68 > 6 [ kg]"},
        {u"", "8 > 8"},
        {u"2020-01-01", "8 > 8"},
        {u"12:30:00", "8 > 8"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Cell));
        EXPECT_EQ(AnalyzeCells({c.Cell}), c.Outcome);
    }
}

TEST(AnalyzeCell, NarrowsAColumnCellByCell) {
    struct Case {
        std::vector<std::u16string> Cells;
        const char* Outcome;
    };
    const Case cases[] = {
        {{u"0", u"1", u"0"}, "124578 > 1"},
        {{u"1", u"2"}, "24578 > 2"},
        {{u"12", u"12.5"}, "58 > 5"},
        {{u"12", u"12.5", u"abc"}, "8 > 8"},
        {{u"1", u"abc"}, "478 > 4"},
        {{u"1e5", u"2e5"}, "4578 > 4"},
        {{u"1.5e3"}, "58 > 5"},
        {{u"5", u"", u"6"}, "8 > 8"},
        // The first acceptable suffix is the unit, whatever becomes of the types.
        {{u"0xff"}, "34578 > 3 [xff]"},
        {{u"0xff", u"0xfe"}, "4578 > 4 [xff]"},
        {{u"16#FF"}, "34678 > 3 [#FF]"},
        {{u"16#FF", u"16#FE"}, "478 > 4 [#FF]"},
        {{u"12 kg", u"12.5 kg"}, "68 > 6 [ kg]"},
        {{u"12 kg", u"13 lb"}, "8 > 8 [ kg]"},
        {{u"12 kg", u"12"}, "8 > 8 [ kg]"},
        {{u"12 kg", u"12 KG"}, "8 > 8 [ kg]"},
        {{u"abc", u"12 kg"}, "8 > 8 [ kg]"},
    };
    for (const Case& c : cases) {
        std::string trace;
        for (const std::u16string& cell : c.Cells) trace += Utf16ToUtf8(cell) + " | ";
        SCOPED_TRACE(trace);
        EXPECT_EQ(AnalyzeCells(c.Cells), c.Outcome);
    }
}

TEST(AnalyzeCell, JudgesALongCellByItsBeginning) {
    const std::u16string zeros(510, u'0');
    EXPECT_EQ(AnalyzeCells({zeros + u"1"}), "124578 > 1");
    EXPECT_EQ(AnalyzeCells({zeros + u"1x"}), "124578 > 1");
    EXPECT_EQ(AnalyzeCells({zeros + u"x"}), "368 > 3 [x]");
    EXPECT_EQ(AnalyzeCells({zeros + u"xyz"}), "368 > 3 [x]");
}

TEST(AnalyzeCell, LeavesTheCellAsItIs) {
    const std::u16string cell = u"1.234,5";
    EXPECT_EQ(AnalyzeCells({cell}), "58 > 5");
    EXPECT_EQ(cell, u"1.234,5");
}

}  // namespace
