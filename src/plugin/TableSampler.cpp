// The beginning of the file is read row by row and its lines are counted. If it goes on behind that, rows at
// places evenly spread to the end stand for the rest: one row is lost at each, since the place lies in it.
#include "plugin/TableSampler.h"

#include <algorithm>
#include <memory>

#include "analysis/SplitLine.h"
#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr std::size_t MostFirstRows = 3000;
constexpr std::size_t MostFirstCells = 300'000;
constexpr std::size_t LinesAboveKept = 40;
constexpr std::uint64_t Places = 40;
constexpr std::size_t RowsPerPlace = 16;
constexpr std::size_t MostCells = 256;
constexpr std::size_t CellLength = 64;

// A source file from one of its bytes on.
class RowSource {
  public:
    RowSource(const std::u16string& path, std::uint64_t from, const CCsvImportSettings& settings)
        : From(from), Settings(settings) {
        constexpr unsigned Flags = CFile::modeRead | CFile::typeText | CFile::shareExclusive;
        auto error = std::make_unique<CFileException>();
        if (!File.Open(path.c_str(), Flags, error.get())) throw error.release();
        if (from != 0) File.Seek(from);
    }

    bool NextLine() { return File.ReadString(Line); }

    // The cells of the line, or none for a blank one, which is no row.
    SampledRow Row(std::uint64_t number) {
        SampledRow row;
        const bool blank = TrimWhiteSpace(Line).empty();
        SplitLine(Line.data(), Settings.GetSeparatorChar(), Settings.MergeSeparators != 0, Cells);
        if (blank && Cells.size() == 1) return row;
        row.Line = number;
        const std::size_t count = std::min(Cells.size(), MostCells);
        row.Cells.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            const std::u16string_view cell = Cells[i];
            row.Cells.emplace_back(cell.substr(0, CellLength));
        }
        return row;
    }

    std::uint64_t Position() const { return From + File.GetPosition(); }
    std::uint64_t Length() const { return File.GetLength(); }

  private:
    const std::uint64_t From;
    const CCsvImportSettings& Settings;
    CStdioFileEx File;
    std::u16string Line;
    CellList Cells;
};

// Answers where the counted rows end.
std::uint64_t ReadFirstRows(RowSource& source, std::uint64_t firstDataLine, TableSample& sample) {
    std::size_t cells = 0;
    for (std::uint64_t line = 1; source.NextLine(); ++line) {
        SampledRow row = source.Row(line);
        if (row.Cells.empty()) continue;
        if (line < firstDataLine) {
            if (line + LinesAboveKept >= firstDataLine) sample.Above.push_back(std::move(row));
            continue;
        }
        cells += row.Cells.size();
        sample.Rows.push_back(std::move(row));
        if (sample.Rows.size() == MostFirstRows || cells >= MostFirstCells) return source.Position();
    }
    sample.IsWhole = true;
    return source.Position();
}

// Units of two bytes can't be told from the middle of a file, where there is no mark.
bool HasWideUnits(const std::u16string& path) {
    CFile file;
    CFileException error(false);
    unsigned char mark[2] = {};
    if (!file.Open(path.c_str(), CFile::modeRead, &error) || file.Read(mark, sizeof mark) != sizeof mark)
        return false;
    return (mark[0] == 0xFF && mark[1] == 0xFE) || (mark[0] == 0xFE && mark[1] == 0xFF);
}

}  // namespace

void SampleRows(const std::u16string& path, const CCsvImportSettings& settings, TableSample& sample) {
    std::uint64_t counted = 0;
    std::uint64_t length = 0;
    {
        RowSource source(path, 0, settings);
        const int firstDataLine = settings.GetFirstDataLine();
        counted = ReadFirstRows(source, static_cast<std::uint64_t>(firstDataLine), sample);
        length = source.Length();
    }
    if (sample.IsWhole || length <= counted || HasWideUnits(path)) return;
    for (std::uint64_t place = 1; place <= Places; ++place) {
        RowSource source(path, counted + (length - counted) / (Places + 1) * place, settings);
        source.NextLine();
        for (std::size_t i = 0; i < RowsPerPlace && source.NextLine(); ++i) {
            SampledRow row = source.Row(0);
            if (!row.Cells.empty()) sample.Rows.push_back(std::move(row));
        }
    }
}
