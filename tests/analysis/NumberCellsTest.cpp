#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <optional>

#include "analysis/NumberCells.h"
#include "platform/framework/Text.h"

namespace {

constexpr const char* Refused = "no";

std::string Short(double number) {
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, number).ptr);
}

std::string Float(std::u16string text, std::u16string* unit = nullptr) {
    double value = 0.0;
    return ParseFloat(text.data(), value, unit) ? Short(value) : Refused;
}

std::string Integer(std::u16string text, bool removeSeparators, std::u16string* unit = nullptr) {
    std::int64_t value = 0;
    return ParseInteger(text.data(), value, removeSeparators, 10, unit) ? std::to_string(value) : Refused;
}

std::string Hex(const std::u16string& text) {
    std::int64_t value = 0;
    return ParseHex(text.c_str(), value) ? std::to_string(value) : Refused;
}

struct FloatCase {
    const char16_t* Text;
    const char* Value;
};

constexpr FloatCase FloatCases[] = {
    {u"0", "0"},
    {u"12.5", "12.5"},
    {u"12,5", "12.5"},
    {u"-1,5e3", "-1500"},
    {u"+.5", "0.5"},
    {u"5.", "5"},
    {u" \t7", "7"},
    // Both marks: the one that comes first separates thousands.
    {u"1.234,5", "1234.5"},
    {u"1,234.5", "1234.5"},
    {u"1.234.567,89", "1234567.89"},
    {u"1,234,567.89", "1234567.89"},
    {u"1,2.3,4", "12.34"},
    // One kind alone is the decimal mark.
    {u"1,234", "1.234"},
    {u"1.234", "1.234"},
    {u"1.234.567", Refused},
    {u"1,234,567", Refused},
    {u"1.2,3,4", Refused},
    // What the runtime takes for a number.
    {u"1e5", "1e+05"},
    {u"0x10", "16"},
    {u"INF", "inf"},
    {u"1e999", "inf"},
    // Other text.
    {u"", Refused},
    {u" ", Refused},
    {u"abc", Refused},
    {u".", Refused},
    {u",", Refused},
    {u"7 ", Refused},
    {u"1 000", Refused},
    {u"2020-01-01", Refused},
    {u"12:30", Refused},
};

TEST(ParseFloat, TakesCommaAndPointAsDecimalMark) {
    for (const FloatCase& c : FloatCases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        EXPECT_EQ(Float(c.Text), c.Value);
    }
}

TEST(ParseFloat, DoesTheSameInALocaleWithDecimalComma) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    const char* found = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252"}) {
        if (found == nullptr) found = std::setlocale(LC_NUMERIC, name);
    }
    if (found == nullptr) GTEST_SKIP() << "this system has no locale with a decimal comma";
    for (const FloatCase& c : FloatCases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        EXPECT_EQ(Float(c.Text), c.Value);
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(ParseInteger, StopsAtAMarkUnlessTheyAreRemoved) {
    struct Case {
        const char16_t* Text;
        const char* AsItStands;
        const char* WithoutMarks;
    };
    constexpr Case Cases[] = {
        {u"0", "0", "0"},
        {u"-5", "-5", "-5"},
        {u" +12", "12", "12"},
        {u"1.234", Refused, "1234"},
        {u"12,5", Refused, "125"},
        {u"-1.234,567.8", Refused, "-12345678"},
        {u"12.", Refused, "12"},
        {u".", Refused, Refused},
        {u"", Refused, Refused},
        {u"-", Refused, Refused},
        {u"12 ", Refused, Refused},
        {u"0x10", Refused, Refused},
        {u"1e5", Refused, Refused},
        // Saturation is no refusal.
        {u"9223372036854775808", "9223372036854775807", "9223372036854775807"},
        {u"-99999999999999999999", "-9223372036854775808", "-9223372036854775808"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        EXPECT_EQ(Integer(c.Text, false), c.AsItStands);
        EXPECT_EQ(Integer(c.Text, true), c.WithoutMarks) << "with removal";
    }
}

TEST(ParseHex, SkipsOnePrefix) {
    struct Case {
        const char16_t* Text;
        const char* Value;
    };
    constexpr Case Cases[] = {
        {u"ff", "255"},
        {u"$FF", "255"},
        {u"0xff", "255"},
        {u"16#1F", "31"},
        {u"1e5", "485"},
        {u"-1", "-1"},
        {u"$-1", "-1"},
        {u"7fffffffffffffff", "9223372036854775807"},
        {u"ffffffffffffffff", "9223372036854775807"},
        // The conversion has a prefix of its own.
        {u"0Xff", "255"},
        {u"$0xff", "255"},
        // At the start only, and exactly as written.
        {u" $ff", Refused},
        {u"$$ff", Refused},
        {u"16#16#1F", Refused},
        {u"$", Refused},
        {u"0x", Refused},
        {u"16#", Refused},
        {u"", Refused},
        {u"fg", Refused},
        {u"ff ", Refused},
        {u"1.5", Refused},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        EXPECT_EQ(Hex(c.Text), c.Value);
    }
}

TEST(UnitRule, TheFirstSuffixSettlesTheUnit) {
    struct Case {
        const char16_t* Text;
        const char16_t* UnitBefore;
        const char* FloatValue;
        const char* IntegerValue;
        const char16_t* UnitAfter;
    };
    constexpr Case Cases[] = {
        // No unit yet: a suffix is wanted, and none that looks like a number.
        {u"12 kg", u"", "12", "12", u" kg"},
        {u"12kg", u"", "12", "12", u"kg"},
        {u"12%", u"", "12", "12", u"%"},
        {u"12 ", u"", "12", "12", u" "},
        {u"12", u"", Refused, Refused, u""},
        {u"12 m2", u"", Refused, Refused, u""},
        {u"12:30", u"", Refused, Refused, u""},
        {u"12 k.g", u"", Refused, Refused, u""},
        {u"12 k,g", u"", Refused, Refused, u""},
        {u"kg", u"", Refused, Refused, u""},
        // A unit: exactly that one.
        {u"12 kg", u" kg", "12", "12", u" kg"},
        {u"12 m2", u" m2", "12", "12", u" m2"},
        {u"12kg", u" kg", Refused, Refused, u" kg"},
        {u"12 KG", u" kg", Refused, Refused, u" kg"},
        {u"12 kgs", u" kg", Refused, Refused, u" kg"},
        {u"12", u" kg", Refused, Refused, u" kg"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text) + " with [" + Utf16ToUtf8(c.UnitBefore) + ']');
        std::u16string floatUnit = c.UnitBefore, integerUnit = c.UnitBefore;
        EXPECT_EQ(Float(c.Text, &floatUnit), c.FloatValue);
        EXPECT_EQ(Integer(c.Text, false, &integerUnit), c.IntegerValue);
        EXPECT_EQ(floatUnit, c.UnitAfter);
        EXPECT_EQ(integerUnit, c.UnitAfter);
    }
}

TEST(NumberCells, RefuseNull) {
    double real;
    std::int64_t integer;
    EXPECT_FALSE(ParseFloat(nullptr, real, nullptr));
    EXPECT_FALSE(ParseInteger(nullptr, integer, true, 10, nullptr));
    EXPECT_FALSE(ParseHex(nullptr, integer));
}

// A test on the low byte of a character alone would let these pass.
TEST(NumberCells, RefuseCharactersThatOnlyEndLikeOthers) {
    const std::u16string number = u"1234";
    for (std::size_t i = 0; i < number.size(); ++i) {
        std::u16string shifted = number;
        shifted[i] = static_cast<char16_t>(shifted[i] + 256);
        EXPECT_EQ(Float(shifted), Refused) << i;
        EXPECT_EQ(Integer(shifted, true), Refused) << i;
        EXPECT_EQ(Hex(shifted), Refused) << i;
    }
}

}  // namespace
