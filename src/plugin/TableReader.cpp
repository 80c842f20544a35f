// Rows of the source file, and times of its cells, for a host that works out how they are written.
#include <algorithm>
#include <memory>

#include "analysis/SplitLine.h"
#include "analysis/TypeCandidates.h"
#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "plugin/TableSampler.h"
#include "resources/ModuleResources.h"
#include "timestamp/FormatLetters.h"
#include "timestamp/TimestampFormat.h"

namespace {

// The settings of an import under another sidecar than the file's own.
CCsvImportSettings SettingsUnder(const char16_t* sidecarPath, std::string& reason) {
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

void OpenSource(const std::u16string& path, CStdioFileEx& file) {
    constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
    auto error = std::make_unique<CFileException>();
    if (!file.Open(path.c_str(), Flags, error.get())) throw error.release();
}

bool AnalyzeTable(const std::u16string& path, CCsvImportSettings& settings) {
    CStdioFileEx file;
    OpenSource(path, file);
    return settings.DetectFormat(file) && settings.AnalyzeColumns(file, nullptr, nullptr);
}

CutLine CutCells(std::uint64_t number, const CellList& cells, const LineCut& cut) {
    CutLine line{number, cells.size(), {}};
    for (std::size_t i = 0; i < std::min(cells.size(), cut.MostCells); ++i) {
        const std::u16string_view text = cells[i];
        line.Cells.push_back({std::u16string(text.substr(0, cut.CellLength)), TypesFitting(cells[i], {})});
    }
    return line;
}

}  // namespace

bool CFilterInterfaces::SampleTable(const char16_t* sidecarPath, TableSample& sample, std::string& reason) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    reason.clear();
    CCsvImportSettings settings =
        sidecarPath == nullptr ? Owner.GetSettings() : SettingsUnder(sidecarPath, reason);
    if (!reason.empty()) return false;
    try {
        if (!AnalyzeTable(Owner.FilePath, settings)) {
            reason = "there is no table";
            return false;
        }
        SampleRows(Owner.FilePath, settings, sample);
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

bool CFilterInterfaces::CutLines(const LineCut& cut, std::vector<CutLine>& lines, std::string& reason) {
    try {
        CStdioFileEx file;
        OpenSource(Owner.FilePath, file);
        std::u16string line;
        CellList cells;
        for (std::uint64_t number = 1; number <= cut.MostLines && file.ReadString(line); ++number) {
            if (TrimWhiteSpace(line).empty()) continue;
            SplitLine(line.data(), cut.Separator, cut.MergeSeparators, cells);
            lines.push_back(CutCells(number, cells, cut));
        }
        return true;
    } catch (CFileException* failure) {
        reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return false;
    }
}

std::vector<std::int64_t> CFilterInterfaces::ReadTimes(const std::u16string& format,
                                                       const std::vector<std::u16string>& texts,
                                                       bool hasDate) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    TimestampFormat reader(format.c_str(), Owner.Alphabet());
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

std::u16string CFilterInterfaces::FormatLetters() {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    return Owner.Alphabet().Letters();
}
