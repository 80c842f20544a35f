#include "host/plan/TableSearch.h"

#include <algorithm>
#include <set>

#include "host/plan/KindWords.h"
#include "host/plan/QuickCut.h"
#include "host/plan/SameMinute.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t MostColumns = 1024;  // looked at

bool IsValue(CellKind kind) {
    return kind != CellKind::Empty && kind != CellKind::Word;
}

// A piece that holds several cells, cut by the wrong separator. One comma may be decimal.
bool HoldsSeveral(std::u16string_view piece) {
    return piece.find_first_of(u";\t") != piece.npos || std::count(piece.begin(), piece.end(), u',') > 1;
}

// The shapes of lines one after the other. What QuickCut has seen of a cell isn't looked at again, nor is a
// time in the same minute as the one before it in its column.
class ShapeCutter {
  public:
    // `mark` is the usual decimal mark of the file.
    ShapeCutter(const Cut& how, char16_t mark) : Quick(how, mark), Slow(how) {}

    // Of the line with this index in the sample.
    RowShape operator()(std::size_t line, std::u16string_view text) {
        const bool isQuick = Quick(text);
        const std::vector<std::u16string_view>& cells = isQuick ? Quick.Cells() : Slow(text);
        RowShape shape;
        shape.Line = line;
        shape.Cells = cells.size();
        const std::size_t count = std::min(cells.size(), MostColumns);
        shape.Kinds.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            CellKind kind = isQuick ? KindOf(Quick.LookAt(i), i, cells[i]) : KindOf(i, cells[i]);
            if (kind != CellKind::Number && HoldsSeveral(cells[i])) kind = CellKind::Word;
            shape.Kinds.push_back(kind);
            shape.Filled += kind != CellKind::Empty;
            shape.Numbers += kind == CellKind::Number;
            shape.Values += IsValue(kind) && kind != CellKind::Number;
        }
        shape.AreKinds = shape.Numbers + shape.Values == 0 && AreKinds(cells);
        return shape;
    }

  private:
    CellKind KindOf(CellLook look, std::size_t column, std::u16string_view cell) {
        if (look == CellLook::Other) return KindOf(column, cell);
        return look == CellLook::Empty ? CellKind::Empty : CellKind::Number;
    }

    CellKind KindOf(std::size_t column, std::u16string_view cell) {
        if (column < Times.size() && Times[column].SecondsMore(cell)) return CellKind::Time;
        const CellKind kind = plan::KindOf(cell);
        if (kind != CellKind::Time) return kind;
        if (Times.size() <= column) Times.resize(column + 1);
        Times[column].Take(cell);
        return kind;
    }

    QuickCut Quick;
    LineCutter Slow;
    std::vector<SameMinute> Times;  // the last one of each column
};

// Numbers count one, other values a half: of two separators the one wins that leaves numbers, where the other
// leaves pieces that only begin with a digit. A time counts a whole one: a colon or a point would cut it.
double Worth(const RowShape& shape) {
    const auto times = std::count(shape.Kinds.begin(), shape.Kinds.end(), CellKind::Time);
    return static_cast<double>(shape.Numbers) + static_cast<double>(shape.Values) / 2 +
           static_cast<double>(times) / 2;
}

// The columns of the table with so many cells that hold values in four of five cells that aren't empty: a
// column of values may hold an error text here and there, one of names may hold a number. Learnt from the
// lower half of its rows, since what is above a table may have its number of cells and hold numbers as well.
std::vector<bool> ValueColumns(const std::vector<RowShape>& shapes, std::size_t cells) {
    std::vector<std::size_t> values(std::min(cells, MostColumns), 0);
    std::vector<std::size_t> words(values.size(), 0);
    const auto isOne = [cells](const RowShape& row) { return row.Cells == cells && row.LooksLikeData(); };
    auto skipped = std::count_if(shapes.begin(), shapes.end(), isOne) / 2;
    for (const RowShape& row : shapes) {
        if (!isOne(row) || skipped-- > 0) continue;
        for (std::size_t column = 0; column < values.size(); ++column) {
            if (row.Kind(column) != CellKind::Empty) ++(IsValue(row.Kind(column)) ? values : words)[column];
        }
    }
    std::vector<bool> holds;
    for (std::size_t column = 0; column < values.size(); ++column)
        holds.push_back(values[column] > 0 && values[column] >= 4 * words[column]);
    return holds;
}

// Names, units and the like: words in the first column or in most columns where the table has values.
bool IsUnlike(const RowShape& row, const std::vector<bool>& holdsValues) {
    std::size_t words = 0;
    std::size_t filled = 0;
    for (std::size_t column = 0; column < holdsValues.size(); ++column) {
        if (!holdsValues[column] || row.Kind(column) == CellKind::Empty) continue;
        ++filled;
        words += row.Kind(column) == CellKind::Word;
    }
    return (holdsValues[0] && row.Kind(0) == CellKind::Word) || 2 * words > filled;
}

bool IsRow(const RowShape& row, const std::vector<bool>& holdsValues) {
    return row.LooksLikeData() && !IsUnlike(row, holdsValues);
}

// The first row after which nearly all are rows: not a line of the preamble that looks like one. Of ten rows
// four in five, since a file may hold comments; of a shorter table all but one, a footer.
std::optional<std::size_t> BeginningOf(const std::vector<RowShape>& shapes, std::size_t cells,
                                       const std::vector<bool>& holdsValues) {
    constexpr std::size_t RowsLookedAt = 10;
    const auto isRow = [&](const RowShape& shape) {
        return shape.Cells == cells && IsRow(shape, holdsValues);
    };
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (!isRow(shapes[i])) continue;
        std::size_t looked = 0;
        std::size_t good = 0;
        for (std::size_t k = i; k < shapes.size() && looked < RowsLookedAt; ++k) {
            if (shapes[k].Filled == 0) continue;
            ++looked;
            good += isRow(shapes[k]);
        }
        if (5 * good >= 4 * looked || (good > 1 && good + 1 == looked)) return i;
    }
    return std::nullopt;
}

// Columns that end earlier than others leave shorter rows below: the table begins with the wider rows
// directly above. One or two such rows are rather names and units.
std::size_t WiderBeginning(const std::vector<RowShape>& shapes, std::size_t first,
                           const std::vector<bool>& holdsValues) {
    constexpr std::size_t FewestRows = 3;
    std::size_t begin = first;
    while (begin > 0 && shapes[begin - 1].Cells >= shapes[first].Cells &&
           IsRow(shapes[begin - 1], holdsValues))
        --begin;
    return first - begin < FewestRows ? first : begin;
}

std::size_t NextRow(const std::vector<RowShape>& shapes, std::size_t from,
                    const std::vector<bool>& holdsValues) {
    while (from + 1 < shapes.size() && !IsRow(shapes[from], holdsValues)) ++from;
    return from;
}

bool AreAlike(const RowShape& row, const RowShape& other, std::size_t cells) {
    for (std::size_t column = 0; column < cells; ++column) {
        if (row.Kind(column) != other.Kind(column)) return false;
    }
    return true;
}

// A first row that alone holds what is said once, as a serial number: it has as many cells as the names above
// it, and those of the other rows are alike.
bool IsLongerFirstRow(const std::vector<RowShape>& shapes, std::size_t index, std::size_t width) {
    if (index == 0 || index + 1 >= shapes.size()) return false;
    const RowShape& names = shapes[index - 1];
    const bool areNames = names.Numbers + names.Values == 0 && names.Cells == shapes[index].Cells;
    return areNames && names.Cells > width && AreAlike(shapes[index], shapes[index + 1], width);
}

// Log lines above a header may look like rows: where a line of words in most columns of values is among the
// first lines, with many more rows below it than above, the table begins below it.
std::size_t BelowLastHeader(const std::vector<RowShape>& shapes, std::size_t first, std::size_t cells,
                            const std::vector<bool>& holdsValues) {
    constexpr std::size_t LinesLookedAt = 40;
    std::size_t rowsAbove = 0;
    std::size_t begin = first;
    for (std::size_t i = first; i + 1 < shapes.size() && i < first + LinesLookedAt; ++i) {
        if (IsRow(shapes[i], holdsValues)) {
            ++rowsAbove;
            continue;
        }
        std::size_t words = 0;
        std::size_t values = 0;
        for (std::size_t k = 0; k < holdsValues.size(); ++k) {
            if (!holdsValues[k]) continue;
            ++values;
            words += shapes[i].Kind(k) == CellKind::Word;
        }
        // Kinds of values below rows of identifiers and factors.
        constexpr std::size_t MostRowsOfAHeader = 5;
        if (shapes[i].AreKinds && shapes[i].Filled > 1 && rowsAbove <= MostRowsOfAHeader) {
            begin = NextRow(shapes, i + 1, holdsValues);
            continue;
        }
        const bool isHeader = shapes[i].Cells >= cells && values > 1 && 4 * words >= 3 * values;
        // The rows above hold less than those below: most of their cells are empty.
        if (!isHeader || !IsRow(shapes[i + 1], holdsValues)) continue;
        // One line of numbers of other kinds above the names says something of the file.
        const bool isLoneLine = rowsAbove == 1 && i == first + 1 &&
                                shapes[i].Numbers + shapes[i].Values == 0 &&
                                !AreAlike(shapes[first], shapes[i + 1], cells);
        if (isLoneLine) begin = i + 1;
        std::size_t filledAbove = 0;
        for (std::size_t k = begin; k < i; ++k) filledAbove += shapes[k].Filled;
        if (rowsAbove > 0 && 2 * filledAbove <= rowsAbove * shapes[i + 1].Filled) begin = i + 1;
    }
    return begin;
}

std::size_t RowsFrom(const std::vector<RowShape>& shapes, std::size_t first, std::size_t cells,
                     const std::vector<bool>& holdsValues) {
    return static_cast<std::size_t>(std::count_if(
        shapes.begin() + static_cast<std::ptrdiff_t>(first), shapes.end(),
        [&](const RowShape& shape) { return shape.Cells == cells && IsRow(shape, holdsValues); }));
}

// Where the first row may be: indices of the sample.
struct Beginnings {
    std::size_t First = 0, Last = 0;
};

// The best table that one way of cutting gives.
void Propose(const FileSample& sample, const Cut& how, std::size_t fewestCells, const Beginnings& beginnings,
             std::optional<FoundTable>& best) {
    const auto holdsSeparator = [&](const SampleLine& line) {
        return std::find(line.Text.begin(), line.Text.end(), how.Separator) != line.Text.end();
    };
    if (fewestCells > 1 && std::none_of(sample.Lines.begin(), sample.Lines.end(), holdsSeparator)) return;
    ShapeCutter shapeOf(how, u'.');
    std::vector<RowShape> shapes;
    std::set<std::size_t> widths;
    shapes.resize(beginnings.First);
    for (std::size_t i = beginnings.First; i < sample.Lines.size(); ++i) {
        shapes.push_back(shapeOf(i, sample.Lines[i].Text));
        if (shapes.back().Cells >= fewestCells && shapes.back().LooksLikeData())
            widths.insert(shapes.back().Cells);
    }
    std::optional<FoundTable> mine;
    for (const std::size_t cells : widths) {
        const std::vector<bool> holdsValues = ValueColumns(shapes, cells);
        if (std::find(holdsValues.begin(), holdsValues.end(), true) == holdsValues.end()) continue;
        const std::optional<std::size_t> first = BeginningOf(shapes, cells, holdsValues);
        if (!first || *first > beginnings.Last) continue;
        FoundTable table{how, *first, cells, 0, 0, {}, holdsValues};
        double worth = 0;
        for (std::size_t i = *first; i < shapes.size(); ++i) {
            if (shapes[i].Cells == cells && IsRow(shapes[i], holdsValues)) worth += Worth(shapes[i]);
        }
        const std::size_t rows = RowsFrom(shapes, *first, cells, holdsValues);
        // The worth of the rows times their worth per cell: the second factor keeps a separator from winning
        // that cuts values into pieces, as the comma does with decimal commas.
        table.Score = worth * worth / static_cast<double>(rows * cells);
        if (mine && table.Score <= mine->Score) continue;
        table.First =
            BelowLastHeader(shapes, WiderBeginning(shapes, *first, holdsValues), cells, holdsValues);
        table.Width = shapes[table.First].Cells;
        if (table.First > 0 && IsLongerFirstRow(shapes, table.First - 1, table.Width)) --table.First;
        table.Rows = RowsFrom(shapes, table.First, cells, holdsValues);
        mine = std::move(table);
    }
    if (!mine || (best && mine->Score <= best->Score)) return;
    for (std::size_t i = 0; i < beginnings.First; ++i) shapes[i] = shapeOf(i, sample.Lines[i].Text);
    mine->Shapes = std::move(shapes);
    best = std::move(mine);
}

bool IsInClock(std::u16string_view text, std::size_t colon) {
    const auto digit = [text](std::size_t at) { return at < text.size() && IsDigit(text[at]); };
    return colon > 0 && digit(colon - 1) && digit(colon + 1) && text[colon + 1] < u'6' && digit(colon + 2) &&
           !digit(colon + 3);
}

// True if nearly all lines of more digits than letters have colons in their clocks alone: "10:00:00;1".
bool AreColonsInClocks(const FileSample& sample) {
    std::size_t clocks = 0;
    std::size_t others = 0;
    for (const SampleLine& line : sample.Lines) {
        const std::u16string_view text = line.Text;
        if (text.find(u':') == text.npos) continue;
        const auto digits = std::count_if(text.begin(), text.end(), IsDigit);
        if (digits <= std::count_if(text.begin(), text.end(), IsLetter)) continue;
        bool areAll = true;
        for (std::size_t at = text.find(u':'); at != text.npos; at = text.find(u':', at + 1))
            areAll &= IsInClock(text, at);
        ++(areAll ? clocks : others);
    }
    return clocks > 4 * others;
}

// True if nearly all lines are one quoted text each, which holds what separates.
bool AreLinesQuoted(const FileSample& sample) {
    std::size_t filled = 0;
    std::size_t quoted = 0;
    for (const SampleLine& line : sample.Lines) {
        const std::u16string_view text = TrimWhiteSpace(line.Text);
        if (text.empty()) continue;
        ++filled;
        if (text.size() < 3 || text.front() != u'"' || text.back() != u'"') continue;
        const std::u16string_view inner = text.substr(1, text.size() - 2);
        quoted += ReplaceAll(std::u16string(inner), u"\"\"", u"").find(u'"') == std::u16string::npos &&
                  inner.find_first_of(u",;\t") != inner.npos;
    }
    return quoted > 1 && 2 * quoted > filled;
}

std::optional<FoundTable> FindWithin(const FileSample& sample, const FixedTable& fixed,
                                     const Beginnings& beginnings) {
    const bool areQuoted = AreLinesQuoted(sample);
    const auto cutBy = [&](char16_t separator) {
        return Cut{separator, fixed.Merges.value_or(separator == u' '), areQuoted};
    };
    std::optional<FoundTable> best;
    if (fixed.Separator) {
        if (*fixed.Separator != u'\0') Propose(sample, cutBy(*fixed.Separator), 2, beginnings, best);
        if (!best) Propose(sample, cutBy(*fixed.Separator), 1, beginnings, best);
        return best;
    }
    for (const char16_t separator : {u';', u',', u'\t', u'|'})
        Propose(sample, cutBy(separator), 2, beginnings, best);
    // Colons and blanks are also within times, names and texts: they need twice the rows or twice the worth.
    for (const char16_t separator : {u':', u' '}) {
        std::optional<FoundTable> weak;
        if (separator == u':' && best && AreColonsInClocks(sample)) continue;
        Propose(sample, cutBy(separator), 2, beginnings, weak);
        if (!weak) continue;
        // Runs of blanks swallow the tabs around empty cells.
        const bool isTabbed = best && best->How.Separator == u'\t' && best->Rows >= weak->Rows &&
                              best->Width >= weak->Width && separator == u' ';
        if (isTabbed) continue;
        const bool wins = !best || weak->Score > 2 * best->Score ||
                          (weak->Rows > 2 * best->Rows && weak->Width >= best->Width);
        if (wins) best = std::move(weak);
    }
    // Rows of one cell are a table only where there is no other.
    if (!best) Propose(sample, {u'\0', false, areQuoted}, 1, beginnings, best);
    return best;
}

// A line of words below a blank one, which is not one of the first lines again.
bool IsNextHeader(const FileSample& sample, std::size_t first, std::size_t at) {
    constexpr std::size_t LinesOfAHeader = 4;
    const std::u16string_view text = TrimWhiteSpace(sample.Lines[at].Text);
    const bool isBelowGap = TrimWhiteSpace(sample.Lines[at - 1].Text).empty();
    if (!isBelowGap || text.empty() || std::any_of(text.begin(), text.end(), IsDigit)) return false;
    const auto begin = sample.Lines.begin() + static_cast<std::ptrdiff_t>(first);
    return std::none_of(begin, begin + LinesOfAHeader,
                        [&](const SampleLine& line) { return TrimWhiteSpace(line.Text) == text; });
}

// The table that begins in the block of lines from `first` on, as if the file ended where another begins.
std::optional<FoundTable> FindInBlock(const FileSample& sample, const FixedTable& fixed, std::size_t first) {
    constexpr std::size_t FewestLines = 4;
    constexpr std::size_t LinesOfAHeader = 24;
    std::size_t end = std::min(first + FewestLines, sample.Head);
    while (end < sample.Head && !IsNextHeader(sample, first, end)) ++end;
    if (end == sample.Head) end = sample.Lines.size();
    FileSample block;
    block.Lines.assign(sample.Lines.begin(), sample.Lines.begin() + static_cast<std::ptrdiff_t>(end));
    std::optional<FoundTable> table = FindWithin(block, fixed, {first, first + LinesOfAHeader});
    if (!table) return table;
    ShapeCutter shapeOf(table->How, u'.');
    for (std::size_t i = end; i < sample.Lines.size(); ++i)
        table->Shapes.push_back(shapeOf(i, sample.Lines[i].Text));
    return table;
}
}  // namespace

bool RowShape::LooksLikeData() const {
    if (Numbers + Values == 0) return false;
    return IsValue(Kind(0)) || 4 * (Numbers + Values) >= Filled;
}

FoundTable CutTable(const FileSample& sample, const Cut& how, std::size_t width, char16_t mark) {
    FoundTable table;
    table.How = how;
    table.Width = width;
    ShapeCutter shapeOf(how, mark);
    for (std::size_t i = 0; i < sample.Lines.size(); ++i)
        table.Shapes.push_back(shapeOf(i, sample.Lines[i].Text));
    table.HoldsValues = ValueColumns(table.Shapes, width);
    return table;
}

std::optional<FoundTable> FindTable(const FileSample& sample, const FixedTable& fixed) {
    if (sample.Lines.empty()) return std::nullopt;
    const std::uint64_t firstRow = fixed.FirstLine + (fixed.HasNames.value_or(false) ? 1 : 0);
    std::size_t first = 0;
    while (first < sample.Head && sample.Lines[first].Number < firstRow) ++first;
    std::optional<FoundTable> table;
    if (fixed.FirstLine != 0) table = FindInBlock(sample, fixed, first);
    if (!table) table = FindWithin(sample, fixed, {first, sample.Lines.size()});
    return table;
}
}  // namespace kelvarin::plan
