// The grammar that is read:
//
//   document  = [ declaration ] misc element misc
//   declaration = "<?xml" version [ encoding ] [ standalone ] "?>"      each a white space, name, "=", quoted
//   value misc      = { white space | comment | instruction } element   = "<" name attributes ( "/>" | ">"
//   content "</" name ">" ) attribute = white space name "=" ( "'" ... "'" | '"' ... '"' )      without "<"
//   content   = { characters | reference | element | comment | instruction | "<![CDATA[" ... "]]>" }
//   comment   = "<!--" ... "-->"                                        without "--"
//   reference = "&" ( "amp" | "lt" | "gt" | "quot" | "apos" | "#" digits | "#x" hexadecimal digits ) ";"
#include "platform/support/XmlDocument.h"

#include <algorithm>
#include <cstdint>
#include <set>

#include "contract/XmlString.h"
#include "platform/framework/Text.h"

namespace {

constexpr std::size_t DeepestElement = 64;

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

struct CharacterRange {
    char32_t First, Last;
};

// The characters that a name begins with, and those that it may have besides.
constexpr CharacterRange NameStarts[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr CharacterRange NameOthers[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t Count>
bool IsIn(const CharacterRange (&ranges)[Count], char32_t point) {
    return std::any_of(ranges, ranges + Count,
                       [point](const CharacterRange& r) { return point >= r.First && point <= r.Last; });
}

bool IsForbiddenControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && !IsSpace(c);
}

// True for a code point that may stand in an XML text.
bool IsXmlCharacter(char32_t point) {
    if (point < 0x20) return point == '\t' || point == '\n' || point == '\r';
    return point <= 0xD7FF || (point >= 0xE000 && point <= 0xFFFD) || (point >= 0x10000 && point <= 0x10FFFF);
}

// Appends a text in which every line end becomes a line feed.
void AppendLines(std::string_view text, std::string& out) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isReturn = text[i] == '\r';
        out += isReturn ? '\n' : text[i];
        if (isReturn && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
}

// What is raised inside this file only; the reader answers it as an XmlError.
struct Malformed {
    XmlError Error;
};

// Walks the text once from its start. Every operation stands at the next character to read.
class XmlWalk {
  public:
    explicit XmlWalk(std::string_view text) : Text(text) {}

    XmlElement Document() {
        if (Text.size() > DM::LargestXmlText) Fail("the text is larger than 1 MiB");
        Declaration();
        SkipMisc();
        if (AtEnd()) Fail("there is no element");
        if (Text[At] != '<') Fail("text outside the root element");
        XmlElement root = Element(1);
        SkipMisc();
        if (!AtEnd()) Fail("something stands behind the root element");
        return root;
    }

  private:
    bool AtEnd() const { return At == Text.size(); }
    bool StartsWith(std::string_view what) const { return Text.substr(At, what.size()) == what; }
    bool Skip(std::string_view what) {
        if (!StartsWith(what)) return false;
        At += what.size();
        return true;
    }
    [[noreturn]] void Fail(std::string reason) const { throw Malformed{{At, std::move(reason)}}; }

    // Steps behind the next occurrence and answers what stands before it.
    std::string_view PassBehind(std::string_view end) {
        const std::size_t found = Text.find(end, At);
        if (found == std::string_view::npos) Fail("\"" + std::string(end) + "\" is missing");
        const std::string_view passed = Text.substr(At, found - At);
        RefuseForbidden(passed);
        At = found + end.size();
        return passed;
    }

    // Control characters, and the two code points that are no characters.
    void RefuseForbidden(std::string_view part) const {
        if (std::any_of(part.begin(), part.end(), IsForbiddenControl)) Fail("a control character");
        if (part.find("\xEF\xBF\xBE") != part.npos || part.find("\xEF\xBF\xBF") != part.npos) {
            Fail("U+FFFE and U+FFFF are no characters");
        }
    }

    void SkipSpace() {
        while (!AtEnd() && IsSpace(Text[At])) ++At;
    }

    // A value of the declaration that must stand next if it stands at all; nothing if it doesn't.
    std::optional<std::string> DeclaredValue(std::string_view name) {
        const std::size_t before = At;
        SkipSpace();
        if (At == before || !Skip(name)) {
            At = before;
            return std::nullopt;
        }
        SkipSpace();
        if (!Skip("=")) Fail("\"=\" is missing in the XML declaration");
        SkipSpace();
        return AttributeValue();
    }

    void Declaration() {
        if (!StartsWith("<?xml") || At + 5 == Text.size() || !IsSpace(Text[At + 5])) return;
        Skip("<?xml");
        const std::optional<std::string> version = DeclaredValue("version");
        if (!version || version->size() < 3 || version->compare(0, 2, "1.") != 0 ||
            version->find_first_not_of("0123456789", 2) != std::string::npos) {
            Fail("the XML declaration needs a version 1.x");
        }
        const std::optional<std::string> encoding = DeclaredValue("encoding");
        constexpr const char* Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        constexpr const char* Others = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
        if (encoding && (encoding->find_first_of(Letters) != 0 ||
                         encoding->find_first_not_of(Others) != std::string::npos)) {
            Fail("the XML declaration names no encoding");
        }
        const std::optional<std::string> standalone = DeclaredValue("standalone");
        if (standalone && *standalone != "yes" && *standalone != "no") Fail("standalone must be yes or no");
        SkipSpace();
        if (!Skip("?>")) Fail("the XML declaration has no end");
    }

    // Comments and instructions, wherever they stand.
    bool SkipMarkup() {
        if (Skip("<!--")) {
            PassBehind("--");
            if (!Skip(">")) Fail("\"--\" inside a comment");
            return true;
        }
        if (StartsWith("<!DOCTYPE")) Fail("a document type is not allowed");
        if (!Skip("<?")) return false;
        const std::string target = Name();
        if (EqualsIgnoreCase(Utf8ToUtf16(target), u"xml"))
            Fail("the XML declaration must stand at the start");
        if (!StartsWith("?>") && (AtEnd() || !IsSpace(Text[At])))
            Fail("a blank is missing behind an instruction's name");
        PassBehind("?>");
        return true;
    }

    void SkipMisc() {
        do {
            SkipSpace();
        } while (SkipMarkup());
    }

    std::string Name() {
        const std::size_t begin = At;
        std::size_t length = 0;
        while (!AtEnd()) {
            const char32_t point = DecodeUtf8Point(Text.substr(At), length);
            if (!IsIn(NameStarts, point) && (At == begin || !IsIn(NameOthers, point))) break;
            At += length;
        }
        if (At == begin) Fail("a name is missing");
        return std::string(Text.substr(begin, At - begin));
    }

    void Reference(std::string& out) {
        constexpr std::pair<std::string_view, char> Named[] = {
            {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
        for (const auto& [name, character] : Named) {
            if (!Skip(name)) continue;
            out += character;
            return;
        }
        if (!StartsWith("&#")) Fail("an unknown reference");
        NumericReference(out);
    }

    void NumericReference(std::string& out) {
        const std::size_t begin = At;
        At += 2;
        const bool isHex = Skip("x");
        const char32_t radix = isHex ? 16 : 10;
        char32_t point = 0;
        const std::size_t digits = At;
        for (; !AtEnd() && DigitOf(Text[At]) < radix; ++At) {
            point = std::min<char32_t>(point * radix + DigitOf(Text[At]), 0x110000);
        }
        if (At == digits || !Skip(";") || !IsXmlCharacter(point)) {
            At = begin;
            Fail("a numeric reference to no character");
        }
        AppendUtf8(point, out);
    }

    static char32_t DigitOf(char c) {
        if (c >= '0' && c <= '9') return static_cast<char32_t>(c - '0');
        if (c >= 'a' && c <= 'f') return static_cast<char32_t>(c - 'a' + 10);
        if (c >= 'A' && c <= 'F') return static_cast<char32_t>(c - 'A' + 10);
        return 36;
    }

    // One character, or a reference, of content or of an attribute.
    void Character(std::string& out) {
        if (Text[At] == '&') return Reference(out);
        RefuseForbidden(Text.substr(At, Text[At] == '\xEF' ? 3 : 1));
        const std::size_t length = StartsWith("\r\n") ? 2 : 1;
        AppendLines(Text.substr(At, length), out);
        At += length;
    }

    std::string AttributeValue() {
        if (AtEnd() || (Text[At] != '"' && Text[At] != '\''))
            Fail("an attribute's value must stand in quotes");
        const char quote = Text[At++];
        std::string value;
        while (!AtEnd() && Text[At] != quote) {
            if (Text[At] == '<') Fail("\"<\" inside an attribute");
            Character(value);
        }
        if (AtEnd()) Fail("an attribute's value has no end");
        ++At;
        return value;
    }

    // Everything of an opening tag behind its name. True if the element ends with it.
    bool Attributes(XmlElement& element) {
        std::set<std::string> names;
        for (;;) {
            const std::size_t before = At;
            SkipSpace();
            if (Skip("/>")) return true;
            if (Skip(">")) return false;
            if (At == before) Fail("an opening tag has no end");
            const std::size_t begin = At;
            std::string name = Name();
            if (!names.insert(name).second) {
                At = begin;
                Fail("the attribute " + name + " stands twice");
            }
            SkipSpace();
            if (!Skip("=")) Fail("\"=\" is missing behind an attribute");
            SkipSpace();
            std::string value = AttributeValue();
            element.Attributes.emplace_back(std::move(name), std::move(value));
        }
    }

    XmlElement Element(std::size_t depth) {
        if (depth > DeepestElement) Fail("elements are nested deeper than 64");
        XmlElement element;
        element.Offset = At;
        Skip("<");
        element.Name = Name();
        if (!Attributes(element)) Content(element, depth);
        return element;
    }

    void Content(XmlElement& element, std::size_t depth) {
        for (;;) {
            if (AtEnd()) Fail("the element " + element.Name + " has no end");
            if (Skip("</")) break;
            if (Skip("<![CDATA[")) {
                AppendLines(PassBehind("]]>"), element.Text);
            } else if (SkipMarkup()) {
                continue;
            } else if (Text[At] == '<') {
                element.Children.push_back(Element(depth + 1));
            } else if (StartsWith("]]>")) {
                Fail("\"]]>\" outside of CDATA");
            } else {
                Character(element.Text);
            }
        }
        const std::size_t begin = At;
        if (Name() != element.Name) {
            At = begin;
            Fail("the closing tag of " + element.Name + " is missing");
        }
        SkipSpace();
        if (!Skip(">")) Fail("a closing tag has no end");
    }

    const std::string_view Text;
    std::size_t At = 0;
};

}  // namespace

const XmlElement* XmlElement::FindChild(std::string_view name) const {
    for (const XmlElement& child : Children) {
        if (child.Name == name) return &child;
    }
    return nullptr;
}

const std::string* XmlElement::FindAttribute(std::string_view name) const {
    for (const auto& [key, value] : Attributes) {
        if (key == name) return &value;
    }
    return nullptr;
}

std::optional<XmlElement> ReadXmlDocument(std::string_view text, XmlError& error) {
    try {
        return XmlWalk(text).Document();
    } catch (const Malformed& malformed) {
        error = malformed.Error;
        return std::nullopt;
    }
}
