// What counts as well-formed, and where a text stops being so.
#include "platform/support/XmlDocument.h"

#include <gtest/gtest.h>

namespace {

// An element as short text: name[key=value]{text}(children).
std::string Shown(const XmlElement& element) {
    std::string text = element.Name;
    for (const auto& [key, value] : element.Attributes) text += "[" + key + "=" + value + "]";
    if (!element.Text.empty()) text += "{" + element.Text + "}";
    for (const XmlElement& child : element.Children) text += "(" + Shown(child) + ")";
    return text;
}

// The document as short text, or the byte and the reason of the error.
std::string ReadShown(const std::string& text) {
    XmlError error;
    const std::optional<XmlElement> root = ReadXmlDocument(text, error);
    return root ? Shown(*root) : std::to_string(error.Offset) + ": " + error.Reason;
}

struct XmlCase {
    std::string Text;
    const char* Outcome;
};

void CheckAll(const std::vector<XmlCase>& cases) {
    for (const XmlCase& c : cases) {
        SCOPED_TRACE(c.Text.substr(0, 100));
        EXPECT_EQ(ReadShown(c.Text), c.Outcome);
    }
}

TEST(XmlDocument, ReadsWhatIsWellFormed) {
    CheckAll({
        {"<a/>", "a"},
        {"\xEF\xBB\xBF<?xml version='1.0'?><!-- - --> <?p i?>\n<a>x</a >\n<!---->", "a{x}"},
        {"<a b='1' c = \"'2\"><d/>t<e>u</e>v</a>", "a[b=1][c='2]{tv}(d)(e{u})"},
        {"<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x20AC;&#x1F600;</a>", "a{<>&\"'A€😀}"},
        {"<a><![CDATA[<&]]]]>b<!--c-->d<?e?>]]</a>", "a{<&]]bd]]}"},
        {"<ä:b.c-1 d='&#10;'/>", "ä:b.c-1[d=\n]"},
    });
}

TEST(XmlDocument, RefusesAnythingElseWithItsPlace) {
    CheckAll({
        {"", "0: there is no element"},
        {"a", "0: text outside the root element"},
        {"<a>", "3: the element a has no end"},
        {"<a", "2: an opening tag has no end"},
        {"<a><b></a></b>", "8: the closing tag of b is missing"},
        {"<a/><b/>", "4: something stands behind the root element"},
        {"<a b/>", "4: \"=\" is missing behind an attribute"},
        {"<a b=1/>", "5: an attribute's value must stand in quotes"},
        {"<a b='1' b='2'/>", "9: the attribute b stands twice"},
        {"<a b='<'/>", "6: \"<\" inside an attribute"},
        {"<a b='1'c='2'/>", "8: an opening tag has no end"},
        {"<a>&nbsp;</a>", "3: an unknown reference"},
        {"<a>&#0;</a>", "3: a numeric reference to no character"},
        {"<a>&#xD800;</a>", "3: a numeric reference to no character"},
        {"<a>&#99999999999;</a>", "3: a numeric reference to no character"},
        {"<a>]]></a>", "3: \"]]>\" outside of CDATA"},
        {"<a><!-- -- --></a>", "10: \"--\" inside a comment"},
        {"<a><![CDATA[</a>", "12: \"]]>\" is missing"},
        {"<!DOCTYPE a><a/>", "0: a document type is not allowed"},
        {" <?xml version='1.0'?><a/>", "6: the XML declaration must stand at the start"},
        {std::string("<a>\0</a>", 8), "3: a control character"},
        {"<1/>", "1: a name is missing"},
    });
}

TEST(XmlDocument, HasLimitsOfDepthAndSize) {
    std::string open;
    std::string close;
    for (int i = 0; i < 64; ++i) {
        open += "<a>";
        close += "</a>";
    }
    EXPECT_EQ(ReadShown(open + close).substr(0, 4), "a(a(");
    EXPECT_EQ(ReadShown(open + "<a/>" + close), "192: elements are nested deeper than 64");
    EXPECT_EQ(ReadShown("<a>" + std::string(1u << 20, 'x') + "</a>"), "0: the text is larger than 1 MiB");
}

TEST(XmlDocument, RefusesEveryBeginningOfAText) {
    const std::string whole = "<?xml version='1.0'?><a b=\"&amp;\"><!--c--><d>e</d><![CDATA[f]]></a>";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE(ReadShown(whole.substr(0, length)).find(": "), std::string::npos)
            << whole.substr(0, length);
    }
}

}  // namespace
