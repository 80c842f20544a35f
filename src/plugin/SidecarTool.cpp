// Sidecar files made and checked without a dialog.

#include "contract/StdioFileEx.h"
#include "contract/XmlString.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "settings/CsvImportSettings.h"
#include "settings/CsvInfoFile.h"

namespace {

// Fills the record's format from the file; false with the reason if there is none to find.
bool DetectFormatOf(const std::u16string& path, CCsvImportSettings& settings, std::string& reason) {
    CStdioFileEx file;
    CFileException error(false);
    try {
        if (!file.Open(path.c_str(), CFile::modeRead | CFile::typeText | CFile::shareExclusive, &error))
            throw &error;
        if (settings.DetectFormat(file)) return true;
        reason = "the file is empty";
    } catch (CFileException* failure) {
        reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
    }
    return false;
}

std::u16string ToText(std::int32_t number) {
    return Utf8ToUtf16(std::to_string(number));
}

std::u16string ToText(bool value) {
    return value ? u"True" : u"False";
}

// A double as the file itself writes it.
std::u16string ToText(double number) {
    DM::XmlString xml(true);
    xml.WriteOpeningTag("n", false);
    xml.WriteRealContent(number, false);
    return Utf8ToUtf16(xml.GetString().substr(3));
}

std::vector<SidecarField> FieldsOf(const CCsvInfoFile& file) {
    return {
        {"START-LINE", ToText(file.StartLine)},         {"SEPARATOR", file.SeparatorText},
        {"DELIMITER-DECIMAL-POINT", file.DecimalPoint}, {"DELIMITER-MIL", file.ThousandsSeparator},
        {"TIME-COLUMN", ToText(file.TimeColumn)},       {"MERGE-SEPARATORS", ToText(file.MergeSeparators)},
        {"IMPORT-HEADER", ToText(file.ImportHeader)},   {"DATE-SETTING", ToText(file.DateSetting)},
        {"DATE-COLUMN", ToText(file.DateColumn)},       {"START-DATE", file.StartDateText},
        {"TIME-SETTING", ToText(file.TimeSetting)},     {"TIME-INTERVAL-VALUE", ToText(file.IntervalValue)},
        {"TIME-INTERVAL-UNIT", file.IntervalUnitText},  {"TIME-ADJUST", file.TimeAdjustText},
        {"TIME-ADJUST-MODE", ToText(file.AdjustMode)},  {"TIMESTAMP-FORMAT", file.TimestampFormat}};
}

}  // namespace

bool CFilterInterfaces::WriteSidecar(std::string& reason) {
    CCsvImportSettings settings;
    if (!DetectFormatOf(Owner.FilePath, settings, reason)) return false;
    CCsvInfoFile file(Owner.FilePath);
    file.Read();  // for what only the file knows
    file.TakeFromSettings(settings);
    return file.Replace(reason);
}

bool CFilterInterfaces::SaveSidecar(std::string& reason) {
    CCsvImportSettings settings;
    if (!DetectFormatOf(Owner.FilePath, settings, reason)) return false;
    CCsvInfoFile file(Owner.FilePath);
    if (file.Read() >= 0) {
        reason = Utf16ToUtf8(PathStripPath(file.GetPath())) + " exists already and stays as it is";
        return false;
    }
    file.TakeFromSettings(settings);
    // What is read is one line below what is written, with a header or without.
    file.StartLine = settings.GetFirstLine() - 1;
    return file.Replace(reason);
}

SidecarCheck CFilterInterfaces::CheckSidecar(const char16_t* sidecarPath) {
    CCsvInfoFile file{std::u16string()};
    file.Path = sidecarPath;
    SidecarCheck check;
    check.Errors = file.Read();
    const CCsvInfoFile::Diagnosis& diagnosis = file.GetDiagnosis();
    check.Line = diagnosis.Line;
    check.Column = diagnosis.Column;
    check.Reason = diagnosis.Reason;
    check.Revision = diagnosis.Revision;
    check.KnownRevision =
        diagnosis.Revision.empty() || diagnosis.Revision == u"1" || diagnosis.Revision == u"2";
    if (check.Errors >= 0) check.Fields = FieldsOf(file);
    return check;
}
