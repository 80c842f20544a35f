// From the fields to a sidecar of revision 2.
#include "contract/XmlString.h"
#include "platform/framework/File.h"
#include "platform/framework/Text.h"
#include "settings/CsvInfoFile.h"

namespace {

// Writes elements under the root until one fails.
class ElementWriter {
  public:
    explicit ElementWriter(DM::XmlString& xml) : Xml(xml) {}

    void Integer(const char* name, std::int32_t value) {
        Close(Open(name, u"integer") && Xml.WriteIntegerContent(value, false));
    }
    void Real(const char* name, double value) {
        Close(Open(name, u"float") && Xml.WriteRealContent(value, false));
    }
    void Text(const char* name, const std::u16string& value) {
        Close(Open(name, u"string") && Xml.WriteStringContent(value, false));
    }
    void Boolean(const char* name, bool value) {
        const std::u16string text = value ? u"True" : u"False";
        Close(Open(name, u"boolean") && Xml.WriteStringContent(text, false));
    }

  private:
    bool Open(const char* name, const char16_t* type) {
        return Xml.WriteOpeningTag(name, true) && Xml.WriteStringAttribute("xsi:type", type);
    }
    void Close(bool complete) {
        if (complete) Xml.WriteClosingTag(false);
    }

    DM::XmlString& Xml;
};

std::string MakeXml(const CCsvInfoFile& file) {
    DM::XmlString xml(true);
    xml.WriteOpeningTag("CSV-INFO", true);
    xml.WriteStringAttribute("format-rev", u"2");
    xml.WriteStringAttribute("xmlns:xsi", u"http://www.w3.org/2001/XMLSchema-instance");
    ElementWriter elements(xml);
    elements.Integer("START-LINE", file.StartLine);
    elements.Text("SEPARATOR", file.SeparatorText);
    elements.Text("DELIMITER-DECIMAL-POINT", file.DecimalPoint);
    elements.Text("DELIMITER-MIL", file.ThousandsSeparator);
    elements.Integer("TIME-COLUMN", file.TimeColumn);
    elements.Boolean("MERGE-SEPARATORS", file.MergeSeparators);
    elements.Boolean("IMPORT-HEADER", file.ImportHeader);
    elements.Integer("DATE-SETTING", file.DateSetting);
    if (file.DateSetting == 0) elements.Integer("DATE-COLUMN", file.DateColumn);
    if (file.DateSetting == 1) elements.Text("START-DATE", file.StartDateText);
    elements.Integer("TIME-SETTING", file.TimeSetting);
    elements.Real("TIME-INTERVAL-VALUE", file.IntervalValue);
    elements.Text("TIME-INTERVAL-UNIT", file.IntervalUnitText);
    if (!file.TimeAdjustText.empty()) {
        elements.Text("TIME-ADJUST", file.TimeAdjustText);
        elements.Integer("TIME-ADJUST-MODE", file.AdjustMode);
    }
    elements.Text("TIMESTAMP-FORMAT", file.TimestampFormat);
    xml.WriteClosingTag(true);
    return xml.GetString();
}

}  // namespace

bool CCsvInfoFile::Replace(std::string& reason) const {
    try {
        ReplaceFile(Path, MakeXml(*this));
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
