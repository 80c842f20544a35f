// Paths as text: whatever bytes a name has, it must lead back to the same file.
#include "platform/framework/Path.h"

#include <gtest/gtest.h>

#include <random>

TEST(Path, AnyBytesComeBack) {
    const struct {
        std::string Native;
        std::u16string Text;
    } cases[] = {
        {"", u""},
        {"/home/Messung \xC3\xBC.csv", u"/home/Messung ü.csv"},
        {"\xF0\x9F\x98\x80", u"\U0001F600"},
        // Latin-1, a cut sequence, surrogates written as UTF-8
        {"\xFC.csv", {0xDCFC, u'.', u'c', u's', u'v'}},
        {"\xE2\x82/\xAC", {0xDCE2, 0xDC82, u'/', 0xDCAC}},
        {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
        // a character whose second unit looks like such a byte, then a byte
        {"\xF0\x90\x82\x80", {0xD800, 0xDC80}},
        {"\xF0\x90\x82\x80\x80", {0xD800, 0xDC80, 0xDC80}},
        {"\x80\xF0\x90\x82\x80", {0xDC80, 0xD800, 0xDC80}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Native));
        EXPECT_EQ(PathFromNative(c.Native), c.Text);
        EXPECT_EQ(PathToNative(c.Text), c.Native);
    }
}

TEST(Path, RandomBytesComeBack) {
    // Parts of sequences rather than any bytes, so that some of them do become characters.
    constexpr char Bytes[] = "a/\xC3\xBC\xE2\x82\xAC\xF0\x90\x80\xED\xA0\xBF\xFF\xDC";
    std::mt19937 engine(1);
    for (int i = 0; i < 50'000; ++i) {
        std::string native(engine() % 12, '\0');
        for (char& c : native) c = Bytes[engine() % (sizeof Bytes - 1)];
        ASSERT_EQ(PathToNative(PathFromNative(native)), native) << testing::PrintToString(native);
    }
}

TEST(Path, Parts) {
    const struct {
        const char16_t *Path, *Name, *Folder;
    } cases[] = {
        {u"", u"", u""},
        {u"data.csv", u"data.csv", u""},
        {u"/data.csv", u"data.csv", u""},
        {u"a/b.c/data.csv.info", u"data.csv.info", u"a/b.c"},
        {u"/a//data", u"data", u"/a/"},
        {u"a\\b", u"a\\b", u""},
        {u"/a/b/", u"/a/b/", u"/a/b"},
        {u"/", u"/", u""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(c.Path)));
        EXPECT_EQ(PathStripPath(c.Path), c.Name);
        EXPECT_EQ(PathFolder(c.Path), c.Folder);
    }
}
