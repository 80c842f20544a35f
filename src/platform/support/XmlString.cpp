#include "contract/XmlString.h"

#include <charconv>

#include "platform/framework/Text.h"

namespace {

// True for the characters that XML can hold at all.
constexpr bool IsXmlUnit(char16_t c) {
    return c >= 0x20 ? c < 0xFFFE : c == u'\t' || c == u'\n' || c == u'\r';
}

// Text as content or attribute value. Control characters that XML keeps are written as references: a reader
// would turn them into blanks or line feeds otherwise.
std::string Escape(std::u16string_view text) {
    std::u16string escaped;
    for (const char16_t c : text) {
        switch (c) {
            case u'&':
                escaped += u"&amp;";
                break;
            case u'<':
                escaped += u"&lt;";
                break;
            case u'>':
                escaped += u"&gt;";
                break;
            case u'"':
                escaped += u"&quot;";
                break;
            case u'\t':
                escaped += u"&#9;";
                break;
            case u'\n':
                escaped += u"&#10;";
                break;
            case u'\r':
                escaped += u"&#13;";
                break;
            default:
                if (IsXmlUnit(c)) escaped += c;
        }
    }
    return Utf16ToUtf8(escaped);
}

}  // namespace

namespace DM {

XmlString::XmlString(bool) {}

void XmlString::FinishOpeningTag() {
    if (TakesAttributes) Text += '>';
    TakesAttributes = false;
}

bool XmlString::WriteOpeningTag(std::string_view name, bool) {
    if (name.empty()) return false;
    FinishOpeningTag();
    Text += '<';
    Text += name;
    OpenElements.emplace_back(name);
    TakesAttributes = true;
    return true;
}

bool XmlString::WriteClosingTag(bool) {
    if (OpenElements.empty()) return false;
    FinishOpeningTag();
    Text += "</" + OpenElements.back() + ">";
    OpenElements.pop_back();
    return true;
}

bool XmlString::WriteStringAttribute(std::string_view name, std::u16string_view value) {
    if (!TakesAttributes || name.empty()) return false;
    Text += ' ';
    Text += name;
    Text += "=\"" + Escape(value) + "\"";
    return true;
}

bool XmlString::WriteIntegerAttribute(std::string_view name, std::int64_t value) {
    return WriteStringAttribute(name, Utf8ToUtf16(std::to_string(value)));
}

bool XmlString::WriteIntegerElement(std::string_view name, std::int64_t value) {
    return WriteOpeningTag(name, false) && WriteIntegerContent(value, false) && WriteClosingTag(false);
}

bool XmlString::WriteStringContent(std::u16string_view text, bool) {
    if (OpenElements.empty()) return false;
    FinishOpeningTag();
    Text += Escape(text);
    return true;
}

bool XmlString::WriteStringContent(std::string_view text, bool hasElements) {
    return WriteStringContent(Utf8ToUtf16(text), hasElements);
}

bool XmlString::WriteIntegerContent(std::int64_t value, bool hasElements) {
    return WriteStringContent(std::to_string(value), hasElements);
}

bool XmlString::WriteRealContent(double value, bool hasElements) {
    constexpr std::size_t Capacity = 32;
    char digits[Capacity];
    const std::to_chars_result end = std::to_chars(digits, digits + Capacity, value);
    return WriteStringContent(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)),
                              hasElements);
}

}  // namespace DM
