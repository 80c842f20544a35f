#include "host/sidecar/Sidecars.h"

#include <algorithm>
#include <filesystem>

#include "contract/TimeReader.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::sidecar {
namespace {
constexpr std::u16string_view Ending = u".info";

std::string NoSidecars() {
    return Phrase("this module has no sidecars");
}

// The column of an element, from 0.
std::size_t ColumnOf(const std::u16string& text) {
    std::size_t column = 0;
    return ParseWhole(Utf16ToUtf8(text), column) ? column : std::u16string::npos;
}

// The times of the first rows, as the import joins two columns, the left one first; empty for a row without.
std::vector<std::u16string> TimesOf(const TableSample& table, std::size_t date, std::size_t time) {
    constexpr std::size_t FirstRows = 32;
    const auto [left, right] = std::minmax(date, time);
    std::vector<std::u16string> texts(std::min(table.Rows.size(), FirstRows));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::vector<std::u16string>& cells = table.Rows[i].Cells;
        if (right >= cells.size()) continue;
        texts[i] = left == right ? cells[left] : cells[left] + table.Separator + cells[right];
    }
    return texts;
}
}  // namespace

SidecarCheck CheckSidecar(const ModuleLoader& module, const std::u16string& sidecar) {
    const auto filter = module.MakeFilter(sidecar);
    if (ISidecarTool* const tool = filter->Find<ISidecarTool>()) return tool->CheckSidecar(sidecar.c_str());
    SidecarCheck check;
    check.Errors = -1;
    check.Reason = NoSidecars();
    return check;
}

std::string WhyUnread(const std::u16string& source) {
    const std::u16string sidecar = source + std::u16string(Ending);
    if (!HasSidecar(source)) return {};
    CFile file;
    CFileException error(false);
    char first = 0;
    if (!file.Open(sidecar.c_str(), CFile::modeRead, &error)) return Utf16ToUtf8(DescribeFileError(error));
    try {
        file.Read(&first, sizeof first);
        return {};
    } catch (CFileException* failure) {
        const std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
}

std::string ComplaintOf(const SidecarCheck& check) {
    if (check.Errors < 0) return check.Reason;
    if (check.Errors > 0) return Phrase("line {}, column {}: {}", check.Line, check.Column, check.Reason);
    if (check.KnownRevision) return {};
    return Phrase("format-rev \"{}\" is unknown, so nothing is read; known are 1 and 2",
                  Utf16ToUtf8(check.Revision));
}

bool HasSidecar(const std::u16string& source) {
    std::error_code ignored;
    const std::filesystem::path sidecar = PathForStream(source + std::u16string(Ending));
    return std::filesystem::exists(std::filesystem::symlink_status(sidecar, ignored));
}

std::string WriteSidecar(const ModuleLoader& module, const std::u16string& source) {
    const auto filter = module.MakeFilter(source);
    ISidecarTool* const tool = filter->Find<ISidecarTool>();
    if (tool == nullptr) return NoSidecars();
    std::string reason;
    tool->WriteSidecar(reason);
    return reason;
}

std::string SaveSidecar(const ModuleLoader& module, const std::u16string& source) {
    if (!HasSidecar(source)) return WriteSidecar(module, source);
    return Phrase("{} exists already and stays as it is",
                  Utf16ToUtf8(PathStripPath(source) + std::u16string(Ending)));
}

SidecarFit::SidecarFit(const ModuleLoader& module, const std::u16string& sidecar)
    : Module(module), Sidecar(sidecar), Check(CheckSidecar(module, sidecar)) {
    WhyUseless = ComplaintOf(Check);
    const auto filter = module.MakeFilter(sidecar);
    if (WhyUseless.empty() && (!filter->Find<ITableReader>() || !filter->Find<ITimeReader>()))
        WhyUseless = Phrase("this module shows no rows");
    if (!WhyUseless.empty() || !sidecar.ends_with(Ending)) return;
    std::string ignored;
    HasSource = Sample(sidecar.substr(0, sidecar.size() - Ending.size()), Source, ignored);
}

std::string SidecarFit::WhyUnfit(const std::u16string& file) const {
    TableSample table;
    std::string reason;
    if (!Sample(file, table, reason)) return reason;
    if (!HasSource) return TryTimes(table);
    if (table.Names.size() != Source.Names.size())
        return Phrase("it has {} columns instead of {}", table.Names.size(), Source.Names.size());
    for (std::size_t i = 0; i < table.Names.size(); ++i) {
        if (table.Names[i] == Source.Names[i]) continue;
        return Phrase("its column {} is '{}' instead of '{}'", i + 1, Utf16ToUtf8(table.Names[i]),
                      Utf16ToUtf8(Source.Names[i]));
    }
    return TryTimes(table);
}

bool SidecarFit::Sample(const std::u16string& file, TableSample& table, std::string& reason) const {
    const auto filter = Module.MakeFilter(file);
    return filter->Find<ITableReader>()->SampleTable(Sidecar.c_str(), table, reason);
}

std::u16string SidecarFit::ValueOf(const char* element) const {
    const auto found = std::find_if(Check.Fields.begin(), Check.Fields.end(),
                                    [&](const SidecarField& field) { return field.Element == element; });
    return found == Check.Fields.end() ? std::u16string() : found->Value;
}

std::string SidecarFit::TryTimes(const TableSample& table) const {
    if (ValueOf("TIME-SETTING") != u"0") return {};
    const bool hasDate = ValueOf("DATE-SETTING") == u"0";
    const std::size_t time = ColumnOf(ValueOf("TIME-COLUMN"));
    const std::size_t date = hasDate ? ColumnOf(ValueOf("DATE-COLUMN")) : time;
    if (std::max(date, time) >= table.Names.size())
        return Phrase("it has no column {}, where the time would be", std::max(date, time) + 1);
    const auto filter = Module.MakeFilter(Sidecar);
    const std::vector<std::u16string> texts = TimesOf(table, date, time);
    const std::u16string format = ValueOf("TIMESTAMP-FORMAT");
    if (texts.empty()) return Phrase("its table has no rows");
    const std::vector<std::int64_t> times = filter->Find<ITimeReader>()->ReadTimes(format, texts, hasDate);
    const std::ptrdiff_t unread = std::count(times.begin(), times.end(), -1);
    if (2 * unread <= std::ssize(texts) && unread != std::ssize(texts)) return {};
    return Phrase("the format '{}' does not read its first time '{}'", Utf16ToUtf8(format),
                  Utf16ToUtf8(texts.front()));
}
}  // namespace kelvarin::sidecar
