// From the sidecar's bytes to the fields.
//
//   sidecar  = <CSV-INFO format-rev="..."> elements </CSV-INFO>
//   elements = any order; of several of a name the first counts; unknown ones are passed over
//
// An absent or empty format-rev, and "1", mean revision 1.
#include <algorithm>

#include "contract/StdioFileEx.h"
#include "contract/XmlString.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/Text.h"
#include "settings/InfoFileElements.h"

namespace {

// Reads the content of the element found last into a field.
struct ContentReader {
    DM::XmlString& Xml;
    CCsvInfoFile& File;

    void operator()(std::u16string CCsvInfoFile::*field) const { Xml.ReadStringContent(File.*field); }
    void operator()(std::int32_t CCsvInfoFile::*field) const { Xml.ReadIntegerContent(File.*field); }
    void operator()(double CCsvInfoFile::*field) const { Xml.ReadRealContent(File.*field); }
    void operator()(bool CCsvInfoFile::*field) const {
        std::u16string text;
        if (Xml.ReadStringContent(text)) File.*field = EqualsIgnoreCase(text, u"True");
    }
};

// Reads an element under one of its names. The field stays as it is if the element is absent.
void ReadElement(DM::XmlString& xml, const char* name, const InfoFileElement& element, CCsvInfoFile& file) {
    if (xml.FindElement(name, false, element.IsRequired)) std::visit(ContentReader{xml, file}, element.Field);
}

}  // namespace

int CCsvInfoFile::Read() {
    FirstError = {};
    CStdioFileEx file;
    CFileException error(false);
    file.SetEncoding(FileEncodingImport);
    // Not raised: beside most source files there is none.
    if (!file.Open(Path.c_str(), CFile::modeRead | CFile::typeText, &error)) {
        FirstError.Reason = Utf16ToUtf8(DescribeFileError(error));
        return -1;
    }
    SourceText source;
    try {
        // Before memory is taken for it; what is beside a source file may be anything.
        if (file.GetLength() > DM::LargestXmlText) {
            SetDiagnosis(source, 0, "the file is larger than 1 MiB");
            return 1;
        }
        std::u16string line;
        while (file.ReadString(line)) {
            source.LineStarts.push_back(source.Text.size());
            source.Text += Utf16ToUtf8(line);
        }
        file.Close();
    } catch (CFileException* failure) {
        FirstError.Reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        file.Abort();
        return -1;
    }
    DM::XmlString xml(source.Text, true);
    ReadElements(xml);
    if (xml.GetErrorCount() > 0) SetDiagnosis(source, xml.GetErrorOffset(), xml.GetErrorReason());
    return xml.GetErrorCount();
}

void CCsvInfoFile::ReadElements(DM::XmlString& xml) {
    if (!xml.FindElement("CSV-INFO", false, true)) return;
    DM::XmlString elements(true);
    xml.GetXmlSubString(elements, true);
    std::u16string& revision = FirstError.Revision;
    xml.ReadStringAttribute("format-rev", revision, false);
    const bool isLegacy = revision.empty() || revision == u"1";
    if (!isLegacy && revision != u"2") return;
    for (const InfoFileElement& element : InfoFileElements) {
        if (element.LegacyName == nullptr) continue;
        ReadElement(elements, isLegacy ? element.LegacyName : element.Name, element, *this);
    }
    // The default format needs the decimal point just read; what follows overrides the defaults.
    SetLegacyDefaults();
    if (isLegacy) return;
    for (const InfoFileElement& element : InfoFileElements) {
        if (element.LegacyName == nullptr) ReadElement(elements, element.Name, element, *this);
    }
}

void CCsvInfoFile::SetLegacyDefaults() {
    MergeSeparators = false;
    ImportHeader = true;
    DateSetting = 2;
    TimeSetting = 0;
    TimeAdjustText.clear();
    AdjustMode = 0;
    TimestampFormat = FormatText(u"[s]%s000", DecimalPoint);
}

void CCsvInfoFile::SetDiagnosis(const SourceText& source, std::size_t offset, const std::string& reason) {
    const auto behind = std::upper_bound(source.LineStarts.begin(), source.LineStarts.end(), offset);
    const auto line = behind - source.LineStarts.begin();
    const std::size_t start = line == 0 ? 0 : source.LineStarts[static_cast<std::size_t>(line) - 1];
    FirstError.Line = std::max(static_cast<int>(line), 1);
    FirstError.Column = offset - start + 1;
    FirstError.Reason = reason;
}
