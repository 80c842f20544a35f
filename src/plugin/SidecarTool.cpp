// Sidecar files made and checked without a dialog.

#include "contract/StdioFileEx.h"
#include "contract/XmlString.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "settings/CsvImportSettings.h"
#include "settings/InfoFileElements.h"

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

// The value of a field as the file itself writes it.
struct ValueText {
    const CCsvInfoFile& File;

    std::u16string operator()(std::u16string CCsvInfoFile::*field) const { return File.*field; }
    std::u16string operator()(std::int32_t CCsvInfoFile::*field) const {
        return Utf8ToUtf16(std::to_string(File.*field));
    }
    std::u16string operator()(bool CCsvInfoFile::*field) const { return File.*field ? u"True" : u"False"; }
    std::u16string operator()(double CCsvInfoFile::*field) const {
        DM::XmlString xml(true);
        xml.WriteOpeningTag("n", false);
        xml.WriteRealContent(File.*field, false);
        return Utf8ToUtf16(xml.GetString().substr(3));
    }
};

}  // namespace

bool CFilterInterfaces::WriteSidecar(std::string& reason) {
    CCsvImportSettings settings;
    if (!DetectFormatOf(Owner.FilePath, settings, reason)) return false;
    CCsvInfoFile file(Owner.FilePath);
    file.Read();  // for what only the file knows
    file.TakeFromSettings(settings);
    // What is read is one line below what is written, with a header or without.
    file.StartLine = settings.GetFirstLine() - 1;
    CCsvImportSettings next = settings;
    file.ApplyToSettings(next);
    if (next.GetSeparatorChar() != settings.GetSeparatorChar()) {
        reason = "no sidecar can say this separator: it would be read as another";
        return false;
    }
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
    if (check.Errors < 0) return check;
    for (const InfoFileElement& element : InfoFileElements)
        check.Fields.push_back({element.Name, std::visit(ValueText{file}, element.Field)});
    return check;
}
