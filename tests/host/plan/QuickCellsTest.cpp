// Which cells are copied and counted in few steps. That they are those of CellCopier::Append QuickCutTest
// checks.
#include "host/plan/QuickCells.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "host/plan/CopyCell.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

// Those of the cells of one column that are taken, a comma after each.
std::string Taken(const PlannedColumn& column, const std::string& cells) {
    QuickCut cut({u';', false, false}, u'.');
    CellCopier copier(column, column.Type, u'.');
    RowText text;
    std::string taken;
    std::istringstream list(cells);
    for (std::string cell; std::getline(list, cell, ',');) {
        const std::u16string line = u"x;" + Utf8ToUtf16(cell) + u";y";
        EXPECT_TRUE(cut(line));
        if (copier.Take(cut, 1) != 0) {
            taken += cell + ",";
        } else {
            copier.Append(cut.Cells()[1], text);
        }
    }
    return taken;
}

TEST(QuickCells, TakesAmountsAndHexadecimalNumbersAfterTwoTexts) {
    constexpr ColumnType Float = ColumnType::Float;
    constexpr ColumnType Hex = ColumnType::Hexadecimal;
    const struct {
        const char16_t* Unit;
        ColumnType Type;
        const char* Cells;
        const char* Taken;
    } cases[] = {
        {u"kg", Float, "1 kg,2 kg,12 kg,-3 kg,4.5 kg,7kg,5 g", "12 kg,-3 kg,4.5 kg,7kg,"},
        {u"\u00B0C", Float, "1 \u00B0C,2 \u00B0C,21.5 \u00B0C,22\u00B0C", "21.5 \u00B0C,22\u00B0C,"},
        // May be hexadecimal, written in a way that is read anew, or a text.
        {u"A", Float, "1 A,2 A,5A,5 A", "5 A,"},
        {u"V", Float, "1 V,2 V,+5 V,- 5 V,5  V,.5 V,1e3 V,V,5", ""},
        {u"V", ColumnType::Text, "1 V,2 V,5 V", ""},
        {u"", Hex, "0x1F,0x2F,0x3f,0XaB,0x0,0xG", "0x3f,0XaB,0x0,"},
        {u"", Hex, "0x00000001,0x00000002,0xFEDCBA9876543210,0x12345678901234567", "0xFEDCBA9876543210,"},
        // What the cells before tell has to be counted first.
        {u"V", Float, "1 V,1 V,1 V,2 V,1 V", "1 V,"},
        {u"V", Float, "1 mV,2 V,3 V,4 mV", ""},
        {u"V", Float, "1 V,7,1.5,2 V,3 V,8", "3 V,"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Cells);
        PlannedColumn column;
        column.Unit = c.Unit;
        column.Type = c.Type;
        EXPECT_EQ(Taken(column, c.Cells), c.Taken);
    }
}

}  // namespace
