#include "view/model/FileText.h"

#include "contract/StdioFileEx.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Text.h"

namespace kelvarin::view {
namespace {
constexpr std::size_t MostShown = 4000;

// Separators within quotes are text.
std::vector<std::pair<int, int>> CellsOf(const std::u16string& line, char16_t separator) {
    std::vector<std::pair<int, int>> cells;
    std::size_t begin = 0;
    bool isQuoted = false;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i < line.size() && line[i] == u'"') isQuoted = !isQuoted;
        const bool isEnd = i == line.size() || (line[i] == separator && !isQuoted);
        if (!isEnd) continue;
        cells.emplace_back(static_cast<int>(begin), static_cast<int>(i - begin));
        begin = i + 1;
    }
    return cells;
}
}  // namespace

std::vector<FileLine> LinesOf(const std::u16string& path, const Reading& format, std::uint64_t first,
                              std::size_t count) {
    std::vector<FileLine> lines;
    CStdioFileEx file;
    CFileException error;
    file.SetEncoding(FileEncodingImport);
    const unsigned flags = CFile::modeRead | CFile::typeText;
    if (!file.Open(path.c_str(), flags, &error)) return lines;
    const char16_t separator = format.SeparatorSign();
    const auto header = static_cast<std::uint64_t>(format.HeaderLine);
    const auto firstRow = static_cast<std::uint64_t>(format.FirstDataLine);
    try {
        std::u16string text;
        for (std::uint64_t number = 1; lines.size() < count && file.ReadString(text); ++number) {
            if (number < first) continue;
            if (text.size() > MostShown) text.resize(MostShown);
            const bool isRow = separator != u'\0' && (number >= firstRow || number == header);
            lines.push_back({number, Utf16ToUtf8(text),
                             isRow ? CellsOf(text, separator) : std::vector<std::pair<int, int>>()});
        }
    } catch (CFileException* failure) {
        failure->Delete();
    }
    return lines;
}
}  // namespace kelvarin::view
