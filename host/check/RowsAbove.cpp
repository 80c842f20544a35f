#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "contract/FixedTimes.h"
#include "contract/TableReader.h"
#include "contract/TimeReader.h"
#include "host/check/CheckRun.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {
namespace {
constexpr std::uint64_t MostLines = 999;  // the greatest value of the setting FirstLine
constexpr std::size_t MostOfACell = 200;

using Lines = std::vector<CutLine>;

// The first lines but for blank ones, up to `last`, as the format cuts them.
Lines CutLines(ITableReader& table, const Reading& format, std::uint64_t last) {
    LineCut cut;
    cut.Separator = format.SeparatorSign();
    cut.MergeSeparators = format.MergeSeparators;
    cut.MostLines = last;
    cut.CellLength = MostOfACell;
    if (format.TimeSetting == TimeFromColumn)
        cut.MostCells = static_cast<std::size_t>(std::max(format.DateColumn, format.TimeColumn));
    Lines lines;
    std::string ignored;
    return table.CutLines(cut, lines, ignored) ? lines : Lines();
}

// The text of the line's time, as an import takes it; empty if it has none, or nothing beside it.
std::u16string TimeText(const CutLine& line, const Reading& format) {
    const bool hasDate = format.DateSetting == DateFromColumn;
    const int other = hasDate ? format.DateColumn : format.TimeColumn;
    const auto left = static_cast<std::size_t>(std::min(format.TimeColumn, other));
    const auto right = static_cast<std::size_t>(std::max(format.TimeColumn, other));
    const std::size_t used = left == right ? 1 : 2;
    if (left < 1 || right > line.Cells.size() || line.CellCount <= used) return {};
    if (left == right) return line.Cells[left - 1].Text;
    return line.Cells[left - 1].Text + format.SeparatorSign() + line.Cells[right - 1].Text;
}

// Which lines have a time that the format reads, earlier than the given one.
std::vector<bool> HaveTimes(ITimeReader& reader, const Lines& lines, const Reading& format,
                            std::int64_t end) {
    std::vector<std::u16string> texts;
    for (const CutLine& line : lines) texts.push_back(TimeText(line, format));
    std::vector<bool> isRow;
    for (const std::int64_t time :
         reader.ReadTimes(format.TimestampFormat, texts, format.DateSetting == DateFromColumn))
        isRow.push_back(time != -1 && time < end);
    return isRow;
}

// The cells of a line with every number as a zero.
std::u16string ShapeOf(const CutLine& line) {
    std::u16string shape;
    for (const CutCell& cell : line.Cells) {
        for (const char16_t c : cell.Text) {
            const bool isNumber =
                IsDigit(c) || std::u16string_view(u"+-.,:").find(c) != std::u16string_view::npos;
            if (!isNumber || !shape.ends_with(u'0')) shape += isNumber ? u'0' : c;
        }
        shape += u'\n';  // in no cell
    }
    return shape;
}

RowsAbove FindLongest(const Lines& lines, const std::vector<bool>& isRow, std::uint64_t end) {
    RowsAbove longest, current;
    std::uint64_t before = ~std::uint64_t{0} - 1;
    for (std::size_t i = 0; i < lines.size() && lines[i].Line < end; before = lines[i++].Line) {
        const std::uint64_t line = lines[i].Line;
        if (!isRow[i]) {
            current = {};
        } else if (current.First == 0 || before + 1 != line) {
            current = {line, line, before + 1 == line};
        } else {
            current.Last = line;
        }
        const bool isLonger =
            longest.First == 0 || current.Last - current.First >= longest.Last - longest.First;
        if (current.First != 0 && isLonger) longest = current;
    }
    // A number in a preamble may read as a time by chance.
    const bool isLong = longest.Last - longest.First >= 2 || longest.Last + 1 == end;
    return isLong ? longest : RowsAbove{};
}

RowsAbove FindByShape(ITableReader& table, const Reading& format, std::uint64_t end) {
    const auto first = static_cast<std::uint64_t>(format.FirstDataLine);
    const Lines lines = CutLines(table, format, first);
    if (lines.empty() || lines.back().Line != first) return {};
    const CutLine& row = lines.back();
    std::vector<bool> isRow;
    for (const CutLine& line : lines)
        isRow.push_back(line.CellCount == row.CellCount && ShapeOf(line) == ShapeOf(row));
    RowsAbove rows = FindLongest(lines, isRow, end);
    rows.Separator = format.Separator;
    return rows;
}
}  // namespace

RowsAbove FindRowsAbove(const CImportFilter& filter, const CheckResult& result) {
    auto* const table = filter.Find<ITableReader>();
    auto* const reader = filter.Find<ITimeReader>();
    const Reading& format = result.Format;
    const bool isCounted = format.TimeSetting == TimeInterval;
    const bool isReadable = isCounted ? result.Begun : !format.TimestampFormat.empty();
    const std::uint64_t endLine = result.Begun ? static_cast<std::uint64_t>(format.FirstDataLine)
                                               : std::numeric_limits<std::uint64_t>::max();
    if (table == nullptr || reader == nullptr || !isReadable || endLine <= 1) return {};
    if (isCounted) return FindByShape(*table, format, endLine);
    const bool anyStored = result.StoredRows() != 0;
    // Rows above the first stored one are earlier; a fixed date or a correction is not in the cells.
    const bool isPlain = format.DateSetting != DateFixed && !format.IsAdjusted;
    const std::int64_t epoch = format.DateSetting == DateNone ? RelativeTimeEpoch : 0;
    const std::int64_t endTime = anyStored && isPlain ? WrappingSubtract(result.Series->First, epoch)
                                                      : std::numeric_limits<std::int64_t>::max();
    Reading tried = format;
    for (int i = -1; i < (anyStored ? 0 : FixedSeparatorCount); ++i) {
        if (i == format.Separator) continue;
        if (i >= 0) tried.Separator = i;
        const Lines lines = CutLines(*table, tried, std::min(endLine - 1, MostLines));
        RowsAbove rows = FindLongest(lines, HaveTimes(*reader, lines, tried, endTime), endLine);
        rows.Separator = tried.Separator;
        if (rows.First != 0) return rows;
    }
    return {};
}
}  // namespace kelvarin::check
