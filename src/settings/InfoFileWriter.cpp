// From the fields to a sidecar of revision 2.
#include <algorithm>
#include <iterator>

#include "contract/XmlString.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"
#include "settings/InfoFileElements.h"

namespace {

// Writes the content of an element that has just been opened, and before it the attribute with its type.
struct ContentWriter {
    DM::XmlString& Xml;
    const CCsvInfoFile& File;

    bool operator()(std::int32_t CCsvInfoFile::*field) const {
        return WriteType(u"integer") && Xml.WriteIntegerContent(File.*field, false);
    }
    bool operator()(double CCsvInfoFile::*field) const {
        return WriteType(u"float") && Xml.WriteRealContent(File.*field, false);
    }
    bool operator()(std::u16string CCsvInfoFile::*field) const {
        return WriteType(u"string") && Xml.WriteStringContent(File.*field, false);
    }
    bool operator()(bool CCsvInfoFile::*field) const {
        const std::u16string text = File.*field ? u"True" : u"False";
        return WriteType(u"boolean") && Xml.WriteStringContent(text, false);
    }

  private:
    bool WriteType(const char16_t* type) const { return Xml.WriteStringAttribute("xsi:type", type); }
};

// The first element that doesn't read back as it was written, such as a character that XML can't hold; null
// if all do.
const InfoFileElement* FindLost(const CCsvInfoFile& file, const CCsvInfoFile& back) {
    const auto isLost = [&](const InfoFileElement& element) {
        const bool isWritten = element.IsWritten == nullptr || element.IsWritten(file);
        const auto differs = [&](auto field) { return file.*field != back.*field; };
        return isWritten && std::visit(differs, element.Field);
    };
    const auto found = std::find_if(std::begin(InfoFileElements), std::end(InfoFileElements), isLost);
    return found == std::end(InfoFileElements) ? nullptr : found;
}

std::string MakeXml(const CCsvInfoFile& file) {
    DM::XmlString xml(true);
    xml.WriteOpeningTag("CSV-INFO", true);
    xml.WriteStringAttribute("format-rev", u"2");
    xml.WriteStringAttribute("xmlns:xsi", u"http://www.w3.org/2001/XMLSchema-instance");
    for (const InfoFileElement& element : InfoFileElements) {
        if (element.IsWritten != nullptr && !element.IsWritten(file)) continue;
        const bool isComplete =
            xml.WriteOpeningTag(element.Name, true) && std::visit(ContentWriter{xml, file}, element.Field);
        if (isComplete) xml.WriteClosingTag(false);
    }
    xml.WriteClosingTag(true);
    return xml.GetString();
}

}  // namespace

bool CCsvInfoFile::Replace(std::string& reason) const {
    const std::string text = MakeXml(*this);
    CCsvInfoFile back{std::u16string()};
    DM::XmlString xml(text, true);
    back.ReadElements(xml);
    if (const InfoFileElement* const lost = FindLost(*this, back)) {
        reason = std::string("no XML can hold the value of ") + lost->Name;
        return false;
    }
    try {
        ReplaceFile(Path, text);
        return true;
    } catch (CFileException* error) {
        reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        return false;
    }
}

int CCsvInfoFile::Write() const {
    // Who can't write beside the source file works without a sidecar; the old one stands.
    std::string ignored;
    Replace(ignored);
    return 0;
}
