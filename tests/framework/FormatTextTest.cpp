// Placeholders of resource texts.
#include "platform/framework/FormatText.h"

#include <gtest/gtest.h>

#include <limits>

TEST(FormatText, FillsPlaceholdersInOrder) {
    // Every case gets the arguments "x" and -7.
    const struct {
        const char16_t *Format, *Text;
    } cases[] = {
        {u"", u""},
        {u"no placeholder", u"no placeholder"},
        {u"%s and %i.", u"x and -7."},
        // a text in the wrong place reads oddly, no more
        {u"%i and %s.", u"x and -7."},
        {u"%d%u", u"x-7"},
        {u"%s", u"x"},
        {u"%s%s%s|", u"x-7|"},
        // percent signs
        {u"100 %%", u"100 %"},
        {u"%%s %s", u"%s x"},
        {u"%%%s", u"%x"},
        {u"%s%%%i", u"x%-7"},
        {u"%", u"%"},
        {u"%s %", u"x %"},
        // no placeholders of ours
        {u"%x %S %5i %", u"%x %S %5i %"},
        {u"% s", u"% s"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(c.Format)));
        EXPECT_EQ(FormatText(c.Format, u"x", -7), c.Text);
    }
}

TEST(FormatText, TakesArgumentsAsTheyAre) {
    EXPECT_EQ(FormatText(u"%s %s", u"%i", std::u16string(u"%%")), u"%i %%");
    EXPECT_EQ(FormatText(u"[%s]", std::u16string()), u"[]");
    EXPECT_EQ(FormatText(u"[%s]", std::u16string(u"a\0b", 3)), std::u16string(u"[a\0b]", 5));
    EXPECT_EQ(FormatText(u"%i", std::numeric_limits<std::int32_t>::min()), u"-2147483648");
    EXPECT_EQ(FormatText(u"%i", std::numeric_limits<std::uint32_t>::max()), u"4294967295");
    EXPECT_EQ(FormatText(u"%i", std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}
