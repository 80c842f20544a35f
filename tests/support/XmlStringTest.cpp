// XML text written element by element.
#include "host/XmlString.h"

#include <gtest/gtest.h>

#include <limits>

using namespace std::string_view_literals;

TEST(XmlString, WritesElementsInOrder) {
    DM::XmlString xml(true);
    EXPECT_TRUE(xml.WriteOpeningTag("root", true));
    EXPECT_TRUE(xml.WriteIntegerAttribute("rev", -1));
    EXPECT_TRUE(xml.WriteStringAttribute("name", u"Gerät"));
    EXPECT_TRUE(xml.WriteOpeningTag("real", false));
    EXPECT_TRUE(xml.WriteRealContent(0.1, false));
    EXPECT_TRUE(xml.WriteClosingTag(false));
    EXPECT_TRUE(xml.WriteIntegerElement("least", std::numeric_limits<std::int64_t>::min()));
    EXPECT_TRUE(xml.WriteOpeningTag("empty", false));
    EXPECT_TRUE(xml.WriteClosingTag(false));
    EXPECT_TRUE(xml.WriteOpeningTag("text", false));
    EXPECT_TRUE(xml.WriteStringAttribute("none", u""));
    EXPECT_TRUE(xml.WriteStringContent(u"µ"sv, false));
    EXPECT_TRUE(xml.WriteStringContent("\xC2\xB5"sv, false));
    EXPECT_TRUE(xml.WriteClosingTag(false));
    EXPECT_TRUE(xml.WriteClosingTag(true));
    EXPECT_EQ(xml.GetString(),
              "<root rev=\"-1\" name=\"Ger\xC3\xA4t\"><real>0.1</real><least>-9223372036854775808</least>"
              "<empty></empty><text none=\"\">\xC2\xB5\xC2\xB5</text></root>");
}

TEST(XmlString, EscapesTexts) {
    const struct {
        std::u16string Text;
        std::string Written;
    } cases[] = {
        {u"a & b", "a &amp; b"},
        {u"<a>", "&lt;a&gt;"},
        {u"\"'", "&quot;'"},
        {u"]]>", "]]&gt;"},
        {u"&amp;", "&amp;amp;"},
        // a reader would make blanks or line feeds of these
        {u"\t\n\r", "&#9;&#10;&#13;"},
        // what XML can't hold
        {std::u16string(u"a\0b\x01\x1F\uFFFE\uFFFF", 7), "ab"},
        {{u'a', 0xD800, u'b'}, "a\xEF\xBF\xBD\x62"},
        {u"\U0001F600\u0085\uFFFD", "\xF0\x9F\x98\x80\xC2\x85\xEF\xBF\xBD"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Text));
        DM::XmlString xml(true);
        xml.WriteOpeningTag("e", false);
        xml.WriteStringAttribute("a", c.Text);
        xml.WriteStringContent(c.Text, false);
        xml.WriteClosingTag(false);
        EXPECT_EQ(xml.GetString(), "<e a=\"" + c.Written + "\">" + c.Written + "</e>");
    }
}

TEST(XmlString, RefusesWhatCannotStand) {
    DM::XmlString xml(true);
    EXPECT_FALSE(xml.WriteClosingTag(false));
    EXPECT_FALSE(xml.WriteStringAttribute("a", u"x"));
    EXPECT_FALSE(xml.WriteStringContent(u"x"sv, false));
    EXPECT_FALSE(xml.WriteIntegerContent(1, false));
    EXPECT_FALSE(xml.WriteRealContent(1, false));
    EXPECT_FALSE(xml.WriteOpeningTag("", false));
    EXPECT_FALSE(xml.WriteIntegerElement("", 1));
    EXPECT_EQ(xml.GetString(), "");

    xml.WriteOpeningTag("root", true);
    EXPECT_FALSE(xml.WriteStringAttribute("", u"x"));
    EXPECT_TRUE(xml.WriteStringContent(u"x"sv, false));
    EXPECT_FALSE(xml.WriteStringAttribute("late", u"x"));
    EXPECT_FALSE(xml.WriteIntegerAttribute("late", 1));
    EXPECT_TRUE(xml.WriteClosingTag(true));
    EXPECT_FALSE(xml.WriteStringAttribute("late", u"x"));
    EXPECT_FALSE(xml.WriteStringContent(u"x"sv, false));
    EXPECT_FALSE(xml.WriteClosingTag(true));
    EXPECT_EQ(xml.GetString(), "<root>x</root>");
}
