// Between UTF-8 and UTF-16, and the few functions on characters.
#include "platform/framework/Text.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;
using namespace std::string_literals;

TEST(Utf8, DecodesEveryCharacter) {
    std::u16string all;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        if (c >= 0x10000) all += static_cast<char16_t>(0xD7C0 + (c >> 10));
        all += static_cast<char16_t>(c < 0x10000 ? c : 0xDC00 | (c & 0x3FF));
    }
    const std::string bytes = Utf16ToUtf8(all);
    EXPECT_EQ(bytes.size(), 0x80u + 2u * 0x780u + 3u * 0xF000u + 4u * 0x100000u);
    std::u16string decoded;
    EXPECT_TRUE(DecodeUtf8(bytes, decoded));
    EXPECT_TRUE(decoded == all);
}

TEST(Utf8, IsStrict) {
    const std::string_view refused[] = {
        // bytes that can't begin a character, or don't continue one
        "\x80"sv, "\xBF"sv, "\xFE"sv, "\xFF"sv, "\xC2"sv, "\xC2 "sv, "\xC2\xC2\x80"sv, "\xE2\x82"sv,
        "\xE2(\xA1"sv, "\xE2\x82("sv, "\xF0\x90\x80"sv, "\xF0\x90\x80 "sv, "\xC3\xBC\xBC"sv,
        // overlong forms
        "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x80\x80"sv, "\xE0\x9F\xBF"sv, "\xF0\x80\x80\x80"sv,
        "\xF0\x8F\xBF\xBF"sv,
        // surrogates
        "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xED\xA0\xBD\xED\xB8\x80"sv,
        // above U+10FFFF
        "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv};
    for (const std::string_view bytes : refused) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        std::u16string text;
        EXPECT_FALSE(DecodeUtf8(bytes, text));
        // ASCII before it is read in blocks: the byte must be found at every place of one.
        for (std::size_t before = 0; before <= 40; ++before) {
            EXPECT_FALSE(DecodeUtf8(std::string(before, 'a').append(bytes), text)) << before << " before";
        }
    }
}

TEST(Utf8, FindsACharacterBehindAnyNumberOfAscii) {
    std::u16string text = u"what the storage held before";
    for (std::size_t before = 0; before <= 40; ++before) {
        const std::string bytes = std::string(before, 'a') + "\xE2\x82\xAC"s + std::string(40 - before, 'b');
        ASSERT_TRUE(DecodeUtf8(bytes, text)) << before;
        EXPECT_EQ(text, std::u16string(before, u'a') + u'€' + std::u16string(40 - before, u'b'));
    }
}

TEST(Utf8, InvalidBytesAreReplacedOneByOne) {
    const struct {
        std::string_view Bytes;
        std::u16string Text;
    } cases[] = {
        {"a\xFF\x62"sv, u"a\uFFFDb"},
        {"\0\xFC"sv, u"\0\uFFFD"s},
        {"\xE2\x82"sv, u"\uFFFD\uFFFD"},
        {"\xE2\x82\xE2\x82\xAC"sv, u"\uFFFD\uFFFD€"},
        {"\xED\xA0\x80"sv, u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x9F\x98"sv, u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x9F\x98\x80"sv, u"\U0001F600"},
    };
    for (const auto& c : cases) EXPECT_EQ(Utf8ToUtf16(c.Bytes), c.Text) << testing::PrintToString(c.Bytes);
}

TEST(Utf16, LoneSurrogatesAreReplaced) {
    constexpr char16_t High = 0xD83D, Low = 0xDE00;
    const struct {
        std::u16string Text;
        std::string Bytes;
    } cases[] = {
        {u"", ""},
        {{High, Low}, "\xF0\x9F\x98\x80"},
        {{High}, "\xEF\xBF\xBD"},
        {{Low}, "\xEF\xBF\xBD"},
        {{u'a', High, u'b'}, "a\xEF\xBF\xBD\x62"},
        {{Low, High}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {{High, High, Low}, "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {{High, Low, Low}, "\xF0\x9F\x98\x80\xEF\xBF\xBD"},
        {{0xD800, 0xDC00}, "\xF0\x90\x80\x80"},
        {{0xDBFF, 0xDFFF}, "\xF4\x8F\xBF\xBF"},
    };
    for (const auto& c : cases) EXPECT_EQ(Utf16ToUtf8(c.Text), c.Bytes) << testing::PrintToString(c.Text);
}

TEST(Characters, SixOfThemAreWhiteSpace) {
    std::u16string found;
    for (char32_t c = 0; c < 0x10000; ++c) {
        if (IsWhiteSpace(static_cast<char16_t>(c))) found += static_cast<char16_t>(c);
    }
    EXPECT_EQ(found, u"\t\n\v\f\r ");
    EXPECT_EQ(TrimWhiteSpace(u"\t\v a b\f\r\n"), u"a b");
    EXPECT_EQ(TrimWhiteSpace(u" \t "), u"");
    EXPECT_EQ(TrimWhiteSpace(u"\u00A0a\u3000"), u"\u00A0a\u3000");
}

TEST(Characters, OnlyAsciiLettersHaveCase) {
    const struct {
        const char16_t *A, *B;
        bool Equal;
    } cases[] = {
        {u"", u"", true},         {u"azAZ09", u"AZaz09", true}, {u"a", u"ab", false},
        {u"@[", u"`{", false},    {u"Ä", u"ä", false},          {u"k", u"\u212A", false},  // the Kelvin sign
        {u"i", u"\u0130", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(EqualsIgnoreCase(c.A, c.B), c.Equal) << testing::PrintToString(std::u16string(c.A));
    }
}

TEST(Characters, ReplaceAllDoesNotReadItsOwnOutput) {
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(ReplaceAll(u"aba", u"a", u"aa"), u"aabaa");
    EXPECT_EQ(ReplaceAll(u"{{x}}", u"{x}", u""), u"{}");
    EXPECT_EQ(ReplaceAll(u"", u"a", u"b"), u"");
}
