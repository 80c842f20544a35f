#include <bit>
#include <random>
#include <sstream>

#include "analysis/NumberCells.h"
#include "analysis/TextCells.h"
#include "analysis/TypeCandidates.h"
#include "kit/CheckRows.h"
#include "platform/framework/Numbers.h"

namespace {

std::string Float(std::u16string text, std::u16string* unit) {
    double value = 0.0;
    std::ostringstream out;
    ParseFloat(text.data(), value, unit) ? out << value : out << "no";
    return out.str();
}

std::string Integer(std::u16string text, bool removeSeparators, std::u16string* unit) {
    std::int64_t value = 0;
    return ParseInteger(text.data(), value, removeSeparators, 10, unit) ? std::to_string(value) : "no";
}

std::string Hex(const std::u16string& text) {
    std::int64_t value = 0;
    return ParseHex(text.c_str(), value) ? std::to_string(value) : "no";
}

TEST(CellParsers, FloatTakesCommaAndPointAsDecimalMark) {
    // Of both marks the one that comes first separates thousands; one kind alone is the decimal mark.
    CheckRows(
        "0->0|12.5->12.5|12,5->12.5|-1,5e3->-1500|+.5->0.5|5.->5| \t7->7|1e5->100000|0x10->16|INF->inf|"
        "1.234,5->1234.5|1,234.5->1234.5|1.000.004,5->1e+06|1,000,004.5->1e+06|1,2.3,4->12.34|1,234->1.234|"
        "1.234->1.234|1.234.567->no|1,234,567->no|1.2,3,4->no|->no| ->no|abc->no|.->no|,->no|7 ->no|"
        "1 000->no|2020-01-01->no|12:30->no|\u0131->no",
        [](const std::u16string& text) { return Float(text, nullptr); });
}

TEST(CellParsers, IntegerStopsAtAMarkUnlessTheyAreRemoved) {
    CheckRows(
        "0->0/0|-5->-5/-5| +12->12/12|1.234->no/1234|12,5->no/125|-1.234,567.8->no/-12345678|12.->no/12|"
        ".->no/no|->no/no|-->no/no|12 ->no/no|0x10->no/no|1e5->no/no|\u0131->no/no|"
        "9223372036854775808->9223372036854775807/9223372036854775807",
        [](const auto& text) { return Integer(text, false, nullptr) + '/' + Integer(text, true, nullptr); });
}

TEST(CellParsers, HexSkipsOnePrefix) {
    CheckRows(
        "ff->255|$FF->255|0xff->255|16#1F->31|1e5->485|-1->-1|$-1->-1|0Xff->255|$0xff->255|\u0131->no|"
        "ffffffffffffffff->9223372036854775807| $ff->no|$$ff->no|16#16#1F->no|$->no|0x->no|16#->no|->no|"
        "fg->no|ff ->no|1.5->no",
        Hex);
}

// "text;unit before" gives the value and the unit after it.
TEST(CellParsers, TheFirstSuffixSettlesTheUnit) {
    CheckRows(
        "12 kg;->12; kg|12kg;->12;kg|12%;->12;%|12 ;->12; |12;->no;|12 m2;->no;|12:30;->no;|12 k.g;->no;|"
        "12 k,g;->no;|kg;->no;|12 kg; kg->12; kg|12 m2; m2->12; m2|12kg; kg->no; kg|12 KG; kg->no; kg|"
        "12 kgs; kg->no; kg|12; kg->no; kg",
        [](const std::u16string& row) {
            std::u16string unit = row.substr(row.find(u';') + 1), integerUnit = unit;
            const std::string value = Float(row.substr(0, row.find(u';')), &unit);
            EXPECT_EQ(Integer(row.substr(0, row.find(u';')), false, &integerUnit), value);
            EXPECT_EQ(integerUnit, unit);
            return value + ';' + Utf16ToUtf8(unit);
        });
}

TEST(CellParsers, BoolAndCharTakeWordsAndNumbers) {
    CheckRows(
        "true->1|TRUE->1|False->0|1->1|0->0|1.0->1|1,0->1|-0->0|0.1e1->1|2->no|-1->no|0.5->no|->no|nan->no|"
        " true->no|true ->no|truetrue->no|\u0174rue->no|1 kg->no",
        [](std::u16string text) {
            bool value = false;
            return ParseBool(text.data(), value) ? std::to_string(value) : "no";
        });
    CheckRows(
        "x->120|7->55| ->32|$->36|\u20AC->8364|41->65|$41->65|0x41->65|16#1->1|FFFF->65535|00000041->65|"
        "-0->0|10000->no|-1->no|->no|xy->no|41 ->no|\U0001F600->no|$$->no|1.5->no",
        [](const std::u16string& text) {
            char16_t value = 0;
            return ParseChar(text.c_str(), value) ? std::to_string(value) : "no";
        });
}

// The candidates that every cell of a column leaves, by its parsers alone.
DataTypeSet FittingAll(const std::vector<std::u16string>& cells) {
    DataTypeSet set = (1 << CsvTypeCount) - 1;
    std::u16string unit;
    const auto narrow = [&set](ECsvDataType type, bool fits) {
        if (!fits) set &= ~(DataTypeSet{1} << (type - CsvTypeBoolean));
    };
    for (std::u16string cell : cells) {
        double number = 0;
        const char16_t* mark = nullptr;
        const bool isPlain = ParseShortDecimal(cell.c_str(), number, &mark);
        char16_t character = 0;
        narrow(CsvTypeInteger, Integer(cell, false, nullptr) != "no");
        narrow(CsvTypeIntegerUnit, !isPlain && Integer(cell, false, &unit) != "no");
        narrow(CsvTypeHex, Hex(cell) != "no");
        narrow(CsvTypeFloat, Float(cell, nullptr) != "no");
        narrow(CsvTypeFloatUnit, !isPlain && Float(cell, &unit) != "no");
        narrow(CsvTypeChar, ParseChar(cell.c_str(), character));
        bool truth = false;
        narrow(CsvTypeBoolean, ParseBool(cell.data(), truth));
    }
    return set;
}

// A plain number leaves what the parsers leave, whatever stands before it in the column.
TEST(CellParsers, TellTheTypesOfAColumn) {
    std::minstd_rand random(11);
    const std::u16string_view cells[] = {u"0",    u"1",    u"12",  u"-5",  u"+70000",
                                         u"12.5", u"0,25", u"5.",  u".5",  u"a",
                                         u"0xF",  u"true", u"4 m", u"1e3", u"9007199254740993",
                                         u"007",  u"1.0",  u"xy",  u"",    u"12345678901234567890"};
    for (int i = 0; i < 20'000; ++i) {
        CCsvColumnInfo column;
        column.TypeCandidates.fill(true);
        std::vector<std::u16string> given;
        for (std::size_t left = 1 + random() % 5; left > 0; --left) {
            given.emplace_back(cells[random() % (i % 2 == 0 ? 9 : std::size(cells))]);
            NarrowTypes(column, given.back().c_str());
        }
        const DataTypeSet expected = FittingAll(given);
        ASSERT_EQ(SetOfTypes(column), expected) << Utf16ToUtf8(given.back());
        ASSERT_EQ(int{column.DetectedType}, std::countr_zero(expected) + 1);
    }
}

}  // namespace
