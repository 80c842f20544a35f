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
#include "settings/CsvInfoFile.h"

namespace {

constexpr bool Required = true;
constexpr bool Optional = false;

// Each reads the content of an element into a field, which stays as it is if the element is absent.
void ReadField(DM::XmlString& xml, const char* name, bool required, std::u16string& field) {
    if (xml.FindElement(name, false, required)) xml.ReadStringContent(field);
}

void ReadField(DM::XmlString& xml, const char* name, bool required, std::int32_t& field) {
    if (xml.FindElement(name, false, required)) xml.ReadIntegerContent(field);
}

void ReadField(DM::XmlString& xml, const char* name, bool required, double& field) {
    if (xml.FindElement(name, false, required)) xml.ReadRealContent(field);
}

void ReadField(DM::XmlString& xml, const char* name, bool required, bool& field) {
    std::u16string text;
    if (xml.FindElement(name, false, required) && xml.ReadStringContent(text)) {
        field = EqualsIgnoreCase(text, u"True");
    }
}

}  // namespace

int CCsvInfoFile::Read() {
    FirstError = {};
    CStdioFileEx file;
    CFileException error(false);
    file.SetEncoding(FileEncodingImport);
    SourceText source;
    try {
        if (!file.Open(Path.c_str(), CFile::modeRead | CFile::typeText, &error)) throw &error;
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
    if (!xml.FindElement("CSV-INFO", false, Required)) return;
    DM::XmlString elements(true);
    xml.GetXmlSubString(elements, true);
    std::u16string& revision = FirstError.Revision;
    xml.ReadStringAttribute("format-rev", revision, false);
    if (revision.empty() || revision == u"1") {
        ReadRevision1(elements);
    } else if (revision == u"2") {
        ReadRevision2(elements);
    }
}

void CCsvInfoFile::ReadRevision1(DM::XmlString& elements) {
    ReadField(elements, "LINE-NUMBER-HEADER", Required, StartLine);
    // These names are misspelt in every file there is.
    ReadField(elements, "DELIMETER-COUMNS", Required, SeparatorText);
    ReadField(elements, "DELIMETER-DECIMAL-POINT", Required, DecimalPoint);
    ReadField(elements, "DELIMETER-MIL-POINT", Required, ThousandsSeparator);
    ReadField(elements, "SIGNAL-NAME-TIME", Optional, TimeColumn);
    SetLegacyDefaults();
}

void CCsvInfoFile::ReadRevision2(DM::XmlString& elements) {
    ReadField(elements, "START-LINE", Required, StartLine);
    ReadField(elements, "SEPARATOR", Required, SeparatorText);
    ReadField(elements, "DELIMITER-DECIMAL-POINT", Required, DecimalPoint);
    ReadField(elements, "DELIMITER-MIL", Required, ThousandsSeparator);
    ReadField(elements, "TIME-COLUMN", Optional, TimeColumn);
    // The default format needs the decimal point just read; what follows overrides the defaults.
    SetLegacyDefaults();
    ReadRestOfRevision2(elements);
}

void CCsvInfoFile::ReadRestOfRevision2(DM::XmlString& elements) {
    ReadField(elements, "MERGE-SEPARATORS", Optional, MergeSeparators);
    ReadField(elements, "IMPORT-HEADER", Optional, ImportHeader);
    ReadField(elements, "DATE-SETTING", Optional, DateSetting);
    ReadField(elements, "DATE-COLUMN", Optional, DateColumn);
    ReadField(elements, "START-DATE", Optional, StartDateText);
    ReadField(elements, "TIME-SETTING", Optional, TimeSetting);
    ReadField(elements, "TIME-INTERVAL-VALUE", Optional, IntervalValue);
    ReadField(elements, "TIME-INTERVAL-UNIT", Optional, IntervalUnitText);
    ReadField(elements, "TIME-ADJUST", Optional, TimeAdjustText);
    ReadField(elements, "TIME-ADJUST-MODE", Optional, AdjustMode);
    ReadField(elements, "TIMESTAMP-FORMAT", Optional, TimestampFormat);
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
