#include "plugin/TableTool.h"

#include <memory>

#include "host/StdioFileEx.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "plugin/TableSampler.h"
#include "resources/ModuleResources.h"
#include "timestamp/FormatLetters.h"
#include "timestamp/TimestampFormat.h"

namespace {

// The settings of an import of the source, or of one under another sidecar than its own.
CCsvImportSettings SettingsFor(const char16_t* sourcePath, const char16_t* sidecarPath, std::string& reason) {
    if (sidecarPath == nullptr) return CCsvImportFilter(sourcePath).GetSettings();
    CCsvImportSettings settings;
    CCsvInfoFile info{std::u16string()};
    info.Path = sidecarPath;
    if (info.Read() == 0) {
        info.ApplyToSettings(settings);
    } else {
        reason = info.GetDiagnosis().Reason;
    }
    return settings;
}

bool AnalyzeTable(const char16_t* sourcePath, CCsvImportSettings& settings) {
    CStdioFileEx file;
    constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
    auto error = std::make_unique<CFileException>();
    if (!file.Open(sourcePath, Flags, error.get())) throw error.release();
    return settings.DetectFormat(file) && settings.AnalyzeColumns(file, nullptr, nullptr);
}

}  // namespace

bool CTableTool::SampleTable(const char16_t* sourcePath, const char16_t* sidecarPath, TableSample& sample,
                             std::string& reason) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    reason.clear();
    CCsvImportSettings settings = SettingsFor(sourcePath, sidecarPath, reason);
    if (!reason.empty()) return false;
    try {
        if (!AnalyzeTable(sourcePath, settings)) {
            reason = "there is no table";
            return false;
        }
        SampleRows(sourcePath, settings, sample);
    } catch (CFileException* failure) {
        reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return false;
    }
    if (settings.GetSeparatorChar() != u'\0') sample.Separator = settings.GetSeparatorChar();
    for (int column = 0; column < settings.GetColumnCount(); ++column) {
        sample.Names.push_back(settings.GetColumn(column).GetDisplayName());
    }
    return true;
}

std::vector<std::int64_t> CTableTool::ReadTimes(const std::u16string& format,
                                                const std::vector<std::u16string>& texts, bool hasDate) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    TimestampFormat reader(format.c_str());
    std::vector<std::int64_t> times;
    times.reserve(texts.size());
    std::u16string padded;
    for (const std::u16string& text : texts) {
        padded = text;
        padded.append(ValuePadding, u'\0');
        times.push_back(reader.Read(padded.c_str(), hasDate));
    }
    return times;
}

std::u16string CTableTool::FormatLetters() {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    return GetFormatLetters();
}
