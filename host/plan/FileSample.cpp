#include "host/plan/FileSample.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "contract/StdioFileEx.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t UnitsPerHeadLine = 200;  // on average, at most: of wide tables fewer lines do
constexpr std::size_t UnitsPerPlace = 4096;    // at most, but for the last line
constexpr std::size_t MostTailLines = 2000;
constexpr std::uint64_t Places = 40;
constexpr std::size_t LinesPerPlace = 24;
constexpr std::uint64_t TailBytes = 16 * 1024;
constexpr std::size_t LongestLine = 64 * 1024;

// Units of two bytes can't be told from the middle of a file, where there is no mark.
bool HasWideUnits(CFile& file) {
    unsigned char mark[2] = {};
    file.Read(mark, sizeof mark);
    return (mark[0] == 0xFF && mark[1] == 0xFE) || (mark[0] == 0xFE && mark[1] == 0xFF);
}

// The lines that begin after a byte, at most so many, and none after so many characters. Returns where they
// end.
std::uint64_t AddLines(const std::u16string& path, std::uint64_t from, std::size_t most,
                       std::size_t mostUnits, FileSample& sample) {
    CStdioFileEx file;
    OpenOrRaise(file, path);
    file.Seek(from);
    std::u16string line;
    if (!file.ReadString(line)) return file.GetPosition();  // the place is within it
    std::size_t units = 0;
    for (std::size_t i = 0; i < most && units < mostUnits && file.ReadString(line); ++i) {
        units += line.size();
        if (line.size() > LongestLine) line.resize(LongestLine);
        sample.Lines.push_back({0, line, i == 0});
    }
    return file.GetPosition();
}

// True if a cell of the line begins with a quote that the line doesn't close.
bool EndsInQuotes(std::u16string_view line) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != u'"') continue;
        const bool isAtBegin =
            i == 0 || std::u16string_view(u",;\t").find(line[i - 1]) != std::u16string_view::npos;
        if (!isQuoted && !isAtBegin) return false;
        isQuoted = !isQuoted;
    }
    return isQuoted;
}

// Names that hold line ends in quotes become one line, with blanks in their place and the number of the last:
// spreadsheets write such names. Further down no line holds a line's end: the module reads a row from a line.
void JoinQuotedNames(FileSample& sample) {
    constexpr std::size_t LinesLookedAt = 100;
    constexpr std::size_t MostLinesOfNames = 40;
    std::vector<SampleLine>& lines = sample.Lines;
    for (std::size_t i = 0; i < std::min(lines.size(), LinesLookedAt); ++i) {
        if (!EndsInQuotes(lines[i].Text)) continue;
        std::u16string joined = lines[i].Text;
        std::size_t end = i + 1;
        while (end < std::min(lines.size(), i + MostLinesOfNames) && EndsInQuotes(joined))
            joined += u' ' + lines[end++].Text;
        if (EndsInQuotes(joined) || (end < lines.size() && EndsInQuotes(lines[end].Text))) return;
        lines[end - 1].Text = std::move(joined);
        lines[end - 1].Lines = end - i;
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i),
                    lines.begin() + static_cast<std::ptrdiff_t>(end - 1));
        sample.Head -= end - 1 - i;
        return;
    }
}
}  // namespace

void OpenOrRaise(CStdioFileEx& file, const std::u16string& path) {
    auto error = std::make_unique<CFileException>();
    constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
    if (!file.Open(path.c_str(), Flags, error.get())) throw error.release();
}

FileSample SampleFile(const std::u16string& path, std::size_t mostHeadLines) {
    FileSample sample;
    std::uint64_t counted = 0;
    std::uint64_t length = 0;
    bool isWide = false;
    {
        CStdioFileEx file;
        OpenOrRaise(file, path);
        length = file.GetLength();
        std::u16string line;
        std::size_t units = 0;
        sample.IsWhole = true;
        while (file.ReadString(line)) {
            units += line.size() + 1;
            if (line.size() > LongestLine) line.resize(LongestLine);
            sample.Lines.push_back({sample.Lines.size() + 1, std::move(line), false});
            if (sample.Lines.size() < mostHeadLines && units < mostHeadLines * UnitsPerHeadLine) continue;
            if (length - file.GetPosition() <= TailBytes) continue;
            sample.IsWhole = !file.ReadString(line);
            break;
        }
        counted = file.GetPosition();
        sample.Head = sample.Lines.size();
        JoinQuotedNames(sample);
        file.Seek(0);
        isWide = HasWideUnits(file);
    }
    if (sample.IsWhole || isWide || length <= counted) return sample;
    const std::uint64_t tail = std::min(TailBytes, length - counted);
    const std::uint64_t rest = length - counted - tail;
    std::uint64_t end = counted;
    for (std::uint64_t place = 1; rest > TailBytes && place <= Places; ++place) {
        const std::uint64_t from = counted + rest / (Places + 1) * place;
        if (from >= end) end = AddLines(path, from, LinesPerPlace, UnitsPerPlace, sample);
    }
    AddLines(path, std::max(length - tail, end), MostTailLines, TailBytes, sample);
    return sample;
}
}  // namespace kelvarin::plan
