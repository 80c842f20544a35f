// UTF-8 and UTF-16, the few functions on characters, paths, and the placeholders of resource texts.
#include "platform/framework/Text.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/framework/FormatText.h"
#include "platform/framework/Path.h"

using namespace std::string_view_literals;

TEST(Utf8, DecodesEveryCharacter) {
    std::string bytes;
    for (char32_t c = 0; c <= 0x10FFFF; c += c == 0xD7FF ? 0x801 : 1) AppendUtf8(c, bytes);
    EXPECT_EQ(bytes.size(), 0x80u + 2u * 0x780u + 3u * 0xF000u + 4u * 0x100000u);
    std::u16string text;
    EXPECT_TRUE(DecodeUtf8(bytes, text) && Utf16ToUtf8(text) == bytes && text.size() == 0x20F800);
}

TEST(Utf8, IsStrict) {
    // also behind ASCII, which is read in blocks
    for (const std::string_view bytes :
         {"\x80"sv, "\xFF"sv, "\xC2 "sv, "\xC2\xC2\x80"sv, "\xE2\x82"sv, "\xE2(\xA1"sv, "\xF0\x90\x80 "sv,
          "\xC3\xBC\xBC"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv, "\xF0\x8F\xBF\xBF"sv,
          "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv}) {
        for (std::size_t before = 0; before <= 40; ++before) {
            std::u16string text;
            EXPECT_FALSE(DecodeUtf8(std::string(before, 'a').append(bytes), text)) << before << bytes;
        }
    }
}

TEST(Utf8, WhatIsInvalidIsReplacedUnitByUnit) {
    EXPECT_EQ(Utf8ToUtf16("a\xFF\x62\xE2\x82\xE2\x82\xAC"), u"a\uFFFDb\uFFFD\uFFFD€");
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\x80\xF0\x9F\x98"), std::u16string(6, u'\uFFFD'));
    constexpr char16_t High = 0xD83D, Low = 0xDE00;
    EXPECT_EQ(Utf16ToUtf8(std::u16string{Low, High, High, Low, u'a', High}), "\uFFFD\uFFFD😀a\uFFFD");
}

TEST(Characters, BelongToAscii) {
    EXPECT_EQ(TrimWhiteSpace(u"\t\v \u00A0a b\u3000\f\r\n"), u"\u00A0a b\u3000");
    EXPECT_TRUE(EqualsIgnoreCase(u"azAZ09", u"AZaz09"));
    EXPECT_FALSE(EqualsIgnoreCase(u"[", u"{") || EqualsIgnoreCase(u"ä", u"Ä"));
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"ab"), u"aba") << "its own output isn't read again";
}

TEST(Path, AnyBytesComeBack) {
    EXPECT_EQ(PathFromNative("\xC3\xBC\xFC"), (std::u16string{u'ü', 0xDCFC}));
    constexpr std::string_view Bytes = "a/\x80\xBF\xC3\xE2\x82\xF0\x90\x82\x80\xED\xA0\xBF\xFF\xDC";
    std::mt19937 random(1);
    for (int i = 0; i < 50'000; ++i) {
        std::string native(random() % 12, '\0');
        for (char& c : native) c = Bytes[random() % Bytes.size()];
        ASSERT_EQ(PathToNative(PathFromNative(native)), native) << testing::PrintToString(native);
    }
}

TEST(FormatText, FillsPlaceholdersInOrder) {
    EXPECT_EQ(FormatText(u"%i %s%s|%% %%s %x %", u"%i", INT64_MIN), u"%i -9223372036854775808|% %s %x %");
}
