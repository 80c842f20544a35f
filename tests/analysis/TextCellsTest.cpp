#include <gtest/gtest.h>

#include "analysis/TextCells.h"
#include "platform/framework/Text.h"

namespace {

TEST(ParseBool, TakesWordsAndTheNumbersZeroAndOne) {
    struct Case {
        const char16_t* Text;
        const char* Value;
    };
    constexpr Case Cases[] = {
        {u"true", "true"}, {u"TRUE", "true"}, {u"False", "false"}, {u"1", "true"},       {u"0", "false"},
        {u"1.0", "true"},  {u"1,0", "true"},  {u"-0", "false"},    {u"+1", "true"},      {u"0.1e1", "true"},
        {u"2", "no"},      {u"-1", "no"},     {u"0.5", "no"},      {u"nan", "no"},       {u"", "no"},
        {u" true", "no"},  {u"true ", "no"},  {u"truetrue", "no"}, {u"\u0174rue", "no"}, {u"1 kg", "no"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        std::u16string text = c.Text;
        bool value = false;
        const bool accepted = ParseBool(text.data(), value);
        EXPECT_STREQ(!accepted ? "no" : value ? "true" : "false", c.Value);
    }
    bool value = true;
    EXPECT_FALSE(ParseBool(nullptr, value));
}

TEST(ParseChar, TakesOneCharacterOrItsCode) {
    struct Case {
        const char16_t* Text;
        int Value;  // -1 for a refusal
    };
    constexpr Case Cases[] = {
        {u"x", u'x'},        {u"7", u'7'},        {u" ", u' '},    {u"$", u'$'}, {u"\u20AC", 0x20AC},
        {u"41", 0x41},       {u"$41", 0x41},      {u"0x41", 0x41}, {u"16#1", 1}, {u"FFFF", 0xFFFF},
        {u"00000041", 0x41}, {u"10000", -1},      {u"-1", -1},     {u"", -1},    {u"xy", -1},
        {u"41 ", -1},        {u"\U0001F600", -1}, {u"$$", -1},     {u"1.5", -1}, {u"-0", 0},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text));
        char16_t value = 0;
        const bool accepted = ParseChar(c.Text, value);
        EXPECT_EQ(accepted ? value : -1, c.Value);
    }
    char16_t value;
    EXPECT_FALSE(ParseChar(nullptr, value));
}

}  // namespace
