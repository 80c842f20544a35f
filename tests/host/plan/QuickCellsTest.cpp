// What is copied and counted in few steps is what CellCopier::Append makes of it.
#include "host/plan/QuickCells.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/plan/CopyCell.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

struct Column {
    const char16_t* Unit;
    ColumnType Type;
    char16_t Mark = u'.';
};

PlannedColumn Planned(const Column& column) {
    PlannedColumn planned;
    planned.Unit = column.Unit;
    planned.Type = column.Type;
    return planned;
}

// The cells of one column, each in a line of its own; copied by Take where that takes them, or by Append
// alone.
class Copied {
  public:
    Copied(const Column& column, bool isQuick)
        : IsQuick(isQuick),
          Planned(::Planned(column)),
          Cut({u';', false, false}, column.Mark),
          Copier(Planned, column.Type, column.Mark) {}

    // What the copy has; `wasTaken` is set if Take has taken the cell.
    std::string Add(const std::string& cell, bool& wasTaken) {
        const std::u16string line = u"x;" + Utf8ToUtf16(cell) + u";y";
        EXPECT_TRUE(Cut(line));
        const std::size_t kept = IsQuick ? Copier.Take(Cut, 1) : 0;
        wasTaken = kept != 0;
        if (wasTaken) return {Cut.Bytes() + Cut.PlaceOf(1), kept};
        RowText text;
        Copier.Append(Cut.Cells()[1], text);
        return std::string(text.Text());
    }

    CellCopier& Result() { return Copier; }

  private:
    const bool IsQuick;
    const PlannedColumn Planned;
    QuickCut Cut;
    CellCopier Copier;
};

// Adds the cells to both; those that were taken, with a blank after each.
std::string Taken(const Column& column, const std::vector<const char*>& cells) {
    Copied quick(column, true);
    Copied plain(column, false);
    std::string taken;
    for (const std::string cell : cells) {
        bool wasTaken = false;
        bool isNever = false;
        EXPECT_EQ(quick.Add(cell, wasTaken), plain.Add(cell, isNever)) << cell;
        if (wasTaken) taken += cell + " ";
    }
    EXPECT_TRUE(quick.Result().Counts() == plain.Result().Counts());
    EXPECT_EQ(quick.Result().Type(), plain.Result().Type());
    EXPECT_EQ(quick.Result().IsWrongType(), plain.Result().IsWrongType());
    EXPECT_EQ(quick.Result().ChangedValues(), plain.Result().ChangedValues());
    EXPECT_EQ(quick.Result().ChangedMarkers(), plain.Result().ChangedMarkers());
    return taken;
}

TEST(QuickCells, TakesAmountsOfTheUnit) {
    constexpr ColumnType Float = ColumnType::Float;
    const struct {
        Column In;
        std::vector<const char*> Cells;  // after two amounts
        const char* Taken;
    } cases[] = {
        {{u"kg", Float}, {"12 kg", "-3 kg", "4.5 kg", "-0.25 kg", "7kg"}, "12 kg -3 kg 4.5 kg -0.25 kg 7kg "},
        {{u"kg", Float, u','}, {"4,5 kg", "4.5 kg", "1.234,5 kg"}, "4,5 kg "},
        {{u"\u00B0C", Float},
         {"21.5 \u00B0C", "22\u00B0C", "0 \u00B0C"},
         "21.5 \u00B0C 22\u00B0C 0 \u00B0C "},
        {{u"V DC", Float}, {"3 V DC", "4V DC", "3 V AC"}, "3 V DC 4V DC "},
        {{u"%", Float}, {"72%", "1 %", "123456789012345678 %"}, "72% 1 % 123456789012345678 % "},
        // May be hexadecimal, or have an exponent.
        {{u"A", Float}, {"5A", "5 A", "12A", "-5A"}, "5 A "},
        {{u"E3", Float}, {"5E3", "5 E3", "1E3"}, "5 E3 "},
        {{u"x1", Float}, {"0x1", "0 x1", "5 x1"}, "0 x1 5 x1 "},
        // Written in a way that is read anew.
        {{u"V", Float}, {"+5 V", "+ 5 V", "- 5 V", "+-5 V", "5  V", "5.V", ".5 V", "1'000 V", "1e3 V"}, ""},
        {{u"V", Float}, {"1234567890123456789 V", "12345678901234567890123456789012345 V"}, ""},
        // No amounts of the unit.
        {{u"V", Float},
         {"", "V", " V", "-V", "5", "5.5", "5 mV", "5 v", "NaN V", "abc V", "1 2 V", "n/a"},
         ""},
        {{u"V", ColumnType::Text}, {"5 V", "6.5 V"}, ""},
        {{u"", Float}, {"5 V", "6.5 V"}, ""},
    };
    for (const auto& c : cases) {
        const std::string unit = Utf16ToUtf8(c.In.Unit);
        SCOPED_TRACE(unit + ", from " + c.Cells.front());
        const std::string first = "1 " + unit;
        const std::string second = "2 " + unit;
        std::vector<const char*> cells = {first.c_str(), second.c_str()};
        cells.insert(cells.end(), c.Cells.begin(), c.Cells.end());
        EXPECT_EQ(Taken(c.In, cells), c.Taken);
    }
}

TEST(QuickCells, TakesHexadecimalNumbers) {
    const struct {
        Column In;
        std::vector<const char*> Cells;
        const char* Taken;
    } cases[] = {
        {{u"", ColumnType::Hexadecimal},
         {"0x1F", "0x2F", "0x3f", "0XaB", "0x0", "0x123"},
         "0x3f 0XaB 0x0 0x123 "},
        {{u"", ColumnType::Text}, {"0x1F", "0x2F", "0x3F"}, "0x3F "},
        {{u"A", ColumnType::Hexadecimal}, {"0x1F", "0x2F", "0x3A"}, "0x3A "},
        // An amount of an odd unit, "x1F", as the first one was.
        {{u"", ColumnType::Hexadecimal}, {"0x1F", "0x2F", "0x1F", "0x1f"}, "0x1f "},
        {{u"x1F", ColumnType::Hexadecimal}, {"0x1F", "0x2F", "0x3F", "0 x1F"}, "0 x1F "},
        // Too long for an amount.
        {{u"", ColumnType::Hexadecimal}, {"0x00000001", "0x00000002", "0x00000003"}, "0x00000003 "},
        {{u"", ColumnType::Hexadecimal},
         {"0x0000000000000001", "0x0000000000000002", "0xFEDCBA9876543210", "0x1", "0x2", "0x3"},
         "0xFEDCBA9876543210 0x2 0x3 "},
        // None.
        {{u"", ColumnType::Hexadecimal},
         {"0x1", "0x2", "0x", "0xG", "0x1G", "x1", "1x1", "0x1 ", "0x1.5", "0x12345678901234567", "-0x1",
          "0x\xC4\xB0", "0x1\xC5\xA1"},
         ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Cells.back());
        EXPECT_EQ(Taken(c.In, c.Cells), c.Taken);
    }
}

// What the cells before tell has to be counted first.
TEST(QuickCells, BeginsAfterTwoTexts) {
    const struct {
        const char* About;
        Column In;
        std::vector<const char*> Cells;
        const char* Taken;
    } cases[] = {
        {"one text again and again", {u"V", ColumnType::Float}, {"1 V", "1 V", "1 V", "2 V", "1 V"}, "1 V "},
        {"another unit first", {u"V", ColumnType::Float}, {"1 mV", "2 V", "3 V", "4 mV"}, ""},
        {"words first", {u"V", ColumnType::Float}, {"off", "open", "broken", "1 V", "2 V"}, "2 V "},
        {"numbers between", {u"V", ColumnType::Float}, {"1 V", "7", "1.5", "2 V", "3 V", "8"}, "3 V "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        EXPECT_EQ(Taken(c.In, c.Cells), c.Taken);
    }
}

}  // namespace
