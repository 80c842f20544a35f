// XML text written element by element, and what counts as well-formed.
#include "contract/XmlString.h"
#include "kit/CheckRows.h"
#include "platform/support/XmlDocument.h"

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
std::string ReadShown(std::string_view text) {
    XmlError error;
    const std::optional<XmlElement> root = ReadXmlDocument(std::string(text), error);
    return root ? Shown(*root) : std::to_string(error.Offset) + ": " + error.Reason;
}

}  // namespace

TEST(XmlDocument, ReadsWhatIsWellFormed) {
    EXPECT_EQ(ReadShown("<a b='1' c = \"'2\"><ä:b.c-1/>t<e>u</e>v</a>"), "a[b=1][c='2]{tv}(ä:b.c-1)(e{u})");
    EXPECT_EQ(ReadShown("<a b='&#10;'>&lt;&gt;&amp;&quot;&apos;&#x1F600;</a>"), "a[b=\n]{<>&\"'😀}");
    EXPECT_EQ(ReadShown("<?xml version='1.0'?><!-- - --> <?p i?>\n<a>x</a >\n<!---->"), "a{x}");
    EXPECT_EQ(
        ReadShown("<?xml version = '1.1' encoding='x-2' standalone='no'?><a b='\r\n\t'>\r\n\r&#xaF;</a>"),
        "a[b=\n\t]{\n\n¯}");
    EXPECT_EQ(ReadShown("<a><![CDATA[<&]]]]>b<!--c-->d<?e?>]]</a>"), "a{<&]]bd]]}");
}

TEST(XmlDocument, RefusesAnythingElseWithItsPlace) {
    CheckRows(
        "->0: there is no element|a->0: text outside the root element|<a>->3: the element a has no end|"
        "<a->2: an opening tag has no end|<a><b></a></b>->8: the closing tag of b is missing|"
        "<a/><b/>->4: something stands behind the root element|<1/>->1: a name is missing|"
        "<a b/>->4: \"=\" is missing behind an attribute|<a b='<'/>->6: \"<\" inside an attribute|"
        "<a b=1/>->5: an attribute's value must stand in quotes|<a>]]></a>->3: \"]]>\" outside of CDATA|"
        "<a b='1' b='2'/>->9: the attribute b stands twice|<a b='1'c='2'/>->8: an opening tag has no end|"
        "<a>&nbsp;</a>->3: an unknown reference|<a>&#0;</a>->3: a numeric reference to no character|"
        "<a>&#xD800;</a>->3: a numeric reference to no character|<a>\x01</a>->3: a control character|"
        "<a>&#99999999999;</a>->3: a numeric reference to no character|"
        "<!DOCTYPE a><a/>->0: a document type is not allowed|<a><![CDATA[</a>->12: \"]]>\" is missing|"
        "<?xml vers='1'?><a/>->5: the XML declaration needs a version 1.x|<?xml version '1.0'?>->14: \"=\" "
        "is "
        "missing in the XML declaration|<?xml version='2.0'?>->19: the XML declaration needs a version 1.x|"
        "<?xml version='1.x'?>->19: the XML declaration needs a version 1.x|<?xml version='1.0'>->19: the "
        "XML "
        "declaration has no end|<?xml version='1.0' encoding='8'?>->32: the XML declaration names no "
        "encoding|"
        "<?xml version='1.0' encoding='a b'?>->34: the XML declaration names no encoding|<?xml version='1.0' "
        "standalone='x'?>->34: standalone must be yes or no|<?p+?><a/>->3: a blank is missing behind an "
        "instruction's name|<?p->3: a blank is missing behind an instruction's name|<a>\uFFFE</a>->3: U+FFFE "
        "and "
        "U+FFFF are no characters|<a>&#xg;</a>->3: a numeric reference to no character|<a>&#x41</a>->3: a "
        "numeric "
        "reference to no character|<a></a b>->7: a closing tag has no end|<a></>->5: a name is missing|"
        " <?xml version='1.0'?><a/>->6: the XML declaration must stand at the start",
        ReadShown);
    EXPECT_EQ(ReadShown("<a><!-- -- --></a>"), "10: \"--\" inside a comment");
    std::string open;
    for (int i = 0; i < 64; ++i) open += "<a>";
    EXPECT_EQ(ReadShown(open + "<a/>"), "192: elements are nested deeper than 64");
    EXPECT_EQ(ReadShown(std::string((1u << 20) + 1, ' ')), "0: the text is larger than 1 MiB");
}

TEST(XmlString, WritesElementsInOrderAndRefusesWhatCannotStand) {
    DM::XmlString xml(true);
    EXPECT_FALSE(xml.WriteClosingTag(false) || xml.WriteStringAttribute("a", u"x"));
    EXPECT_FALSE(xml.WriteStringContent("x", false) || xml.WriteIntegerElement("", 1));
    EXPECT_TRUE(xml.WriteOpeningTag("root", true) && xml.WriteIntegerAttribute("rev", -1));
    EXPECT_TRUE(xml.WriteStringAttribute("name", u"<Gerät> & \"'\t\n\r"));
    EXPECT_TRUE(xml.WriteOpeningTag("real", false) && xml.WriteRealContent(0.1, false));
    EXPECT_TRUE(!xml.WriteIntegerAttribute("late", 1) && xml.WriteClosingTag(false));
    EXPECT_TRUE(xml.WriteIntegerElement("least", -1) && xml.WriteStringContent(u"\x01]]>\uFFFE😀", true));
    EXPECT_TRUE(xml.WriteClosingTag(true) && !xml.WriteClosingTag(true) &&
                !xml.WriteStringContent("x", false));
    EXPECT_EQ(xml.GetString(),
              "<root rev=\"-1\" name=\"&lt;Gerät&gt; &amp; &quot;'&#9;&#10;&#13;\"><real>0.1</real>"
              "<least>-1</least>]]&gt;😀</root>");
}

TEST(XmlString, CountsWhatIsMissingAndLeavesValuesAlone) {
    DM::XmlString xml("<a b='1'><n> 7 </n><n>8</n><x>7.5e1</x><big>2147483648</big></a>", true), inner(true);
    std::int32_t number = 1;
    double real = 1.5;
    std::u16string text = u"old";
    const auto reads = [&](DM::XmlString& from) {
        const bool integer = from.ReadIntegerContent(number);
        return std::string(integer ? "n" : "-") + (from.ReadRealContent(real) ? "r" : "-");
    };
    EXPECT_EQ(reads(xml), "--") << "nothing is found yet";
    EXPECT_FALSE(xml.ReadStringContent(text) || xml.GetXmlSubString(inner, true));
    EXPECT_FALSE(xml.ReadStringAttribute("b", text, true) || xml.FindElement("b", false, false));
    EXPECT_TRUE(xml.FindElement("a", false, true) && xml.GetXmlSubString(inner, true));
    EXPECT_TRUE(xml.ReadStringAttribute("b", text, true) && text == u"1");
    EXPECT_FALSE(xml.ReadStringAttribute("c", text, true) || inner.FindElement("y", false, true));
    EXPECT_EQ(reads(xml), "--");
    EXPECT_TRUE(inner.FindElement("big", false, true) && reads(inner) == "-r" && real == 2147483648.0);
    EXPECT_TRUE(inner.FindElement("x", false, true) && reads(inner) == "-r" && real == 75.0 && number == 1);
    EXPECT_TRUE(inner.FindElement("n", false, true) && reads(inner) == "nr" && number == 7);
    EXPECT_EQ(xml.GetErrorCount(), 7);
}
