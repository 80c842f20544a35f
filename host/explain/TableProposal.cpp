// The search for the table that a person would see: rows alike in width and in what their cells hold.
#include <algorithm>
#include <set>
#include <string_view>

#include "host/Words.h"
#include "host/explain/Explanation.h"
#include "host/explain/RowShape.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {
namespace {
// A date, a time, a value with a unit: it begins with a digit, after a sign or a bracket at most.
bool BeginsWithDigit(std::u16string_view text) {
    const std::size_t skipped = std::u16string_view(u"+-<>$~").find(text.front()) != text.npos ? 1 : 0;
    const std::u16string_view rest = TrimWhiteSpace(text.substr(skipped));
    return !rest.empty() && IsDigit(rest.front());
}

CellKind KindOf(const CutCell& cell) {
    const std::u16string_view text = TrimWhiteSpace(cell.Text);
    // "inf" is a value, but as little a sign of a table as a missing one.
    if (IsMissingValue(text)) return CellKind::Empty;
    if (Contains(cell.Fits, CsvTypeBoolean) || Contains(cell.Fits, CsvTypeFloat)) return CellKind::Number;
    // A piece that holds several cells, cut by the wrong separator. One comma may be decimal.
    if (text.find_first_of(u";\t") != text.npos || std::count(text.begin(), text.end(), u',') > 1)
        return CellKind::Word;
    // A word of a few letters may be hexadecimal by chance; two digits of a byte are.
    const bool isShortHex = Contains(cell.Fits, CsvTypeHex) && text.size() == 2;
    return isShortHex || BeginsWithDigit(text) ? CellKind::Digits : CellKind::Word;
}

// The columns of a table that hold values: numbers or other digits in four of five cells that aren't empty. A
// column of values may hold an error text here and there, one of names may hold a number.
class ValueColumns {
  public:
    // Learns from the lower half of the rows with this number of cells that look like data.
    ValueColumns(const std::vector<RowShape>& rows, std::size_t cells) {
        std::vector<std::size_t> values(std::min(cells, AnalysisRecord::MostColumns), 0);
        std::vector<std::size_t> words(values.size(), 0);
        const auto isOne = [cells](const RowShape& row) { return row.Cells == cells && row.LooksLikeData(); };
        // What lies above a table may have its number of cells and hold numbers as well; what lies below
        // seldom has.
        auto skipped = std::count_if(rows.begin(), rows.end(), isOne) / 2;
        for (const RowShape& row : rows) {
            if (!isOne(row) || skipped-- > 0) continue;
            for (std::size_t column = 0; column < values.size(); ++column) {
                const CellKind kind = row.Kind(column);
                if (kind != CellKind::Empty) ++(kind == CellKind::Word ? words : values)[column];
            }
        }
        for (std::size_t column = 0; column < values.size(); ++column) {
            HoldsValues.push_back(values[column] > 0 && values[column] >= 4 * words[column]);
        }
    }

    bool IsEmpty() const {
        return std::find(HoldsValues.begin(), HoldsValues.end(), true) == HoldsValues.end();
    }

    // True for names, units and the like above the values: words in the first column or in most columns,
    // where the table has values.
    bool IsUnlike(const RowShape& row) const {
        std::size_t words = 0;
        std::size_t filled = 0;
        for (std::size_t column = 0; column < HoldsValues.size(); ++column) {
            if (!HoldsValues[column] || row.Kind(column) == CellKind::Empty) continue;
            ++filled;
            words += row.Kind(column) == CellKind::Word;
        }
        const bool beginsWithWord = HoldsValues[0] && row.Kind(0) == CellKind::Word;
        return beginsWithWord || 2 * words > filled;
    }

  private:
    std::vector<bool> HoldsValues;
};

// The rows of a file as one separator cuts them.
class SplitFile {
  public:
    SplitFile(std::vector<CutLine> rows, int separator) : Rows(std::move(rows)), Separator(separator) {
        for (const CutLine& row : Rows) Shapes.emplace_back(row);
    }

    // The best table among rows of this separator and of so many cells at least, with its score.
    void Propose(std::size_t fewestCells, std::optional<TableProposal>& best, double& bestScore) const {
        std::set<std::size_t> widths;
        for (const RowShape& shape : Shapes) {
            if (shape.Cells >= fewestCells && shape.LooksLikeData()) widths.insert(shape.Cells);
        }
        for (const std::size_t cells : widths) {
            const ValueColumns columns(Shapes, cells);
            const auto first = columns.IsEmpty() ? std::nullopt : Beginning(columns, cells);
            if (!first) continue;
            TableProposal table;
            double value = 0;
            for (std::size_t i = *first; i < Shapes.size(); ++i) {
                if (Shapes[i].Cells != cells || !IsRow(Shapes[i], columns)) continue;
                ++table.Rows;
                table.LastLine = Shapes[i].Line;
                value += Shapes[i].Value();
            }
            // The value of the rows times their value per cell: the second factor keeps a separator from
            // winning that cuts values into pieces, as the comma does with decimal commas.
            const double score = value * value / static_cast<double>(table.Rows * cells);
            if (score <= bestScore) continue;
            bestScore = score;
            Place(table, WiderBeginning(columns, *first), columns);
            best = table;
        }
    }

  private:
    static bool IsRow(const RowShape& shape, const ValueColumns& columns) {
        return shape.LooksLikeData() && !columns.IsUnlike(shape);
    }

    // The first row of the table after which nearly all are its rows: not a line of the preamble that looks
    // like one. Of ten rows four in five, since a file may hold comments; of a shorter table all but one, a
    // footer.
    std::optional<std::size_t> Beginning(const ValueColumns& columns, std::size_t cells) const {
        constexpr std::size_t RowsLookedAt = 10;
        const auto isRow = [&](const RowShape& shape) {
            return shape.Cells == cells && IsRow(shape, columns);
        };
        for (std::size_t i = 0; i < Shapes.size(); ++i) {
            if (!isRow(Shapes[i])) continue;
            std::size_t looked = 0;
            std::size_t good = 0;
            for (std::size_t k = i; k < Shapes.size() && looked < RowsLookedAt; ++k) {
                if (Shapes[k].Filled == 0) continue;
                ++looked;
                good += isRow(Shapes[k]);
            }
            if (5 * good >= 4 * looked || (good > 1 && good + 1 == looked)) return i;
        }
        return std::nullopt;
    }

    // Columns that end earlier than others leave shorter rows below: the table begins with the wider rows
    // directly above. One or two such rows are rather names and units.
    std::size_t WiderBeginning(const ValueColumns& columns, std::size_t first) const {
        constexpr std::size_t FewestRows = 3;
        std::size_t begin = first;
        while (begin > 0 && Shapes[begin - 1].Line == Shapes[begin].Line - 1 &&
               Shapes[begin - 1].Cells >= Shapes[first].Cells && IsRow(Shapes[begin - 1], columns)) {
            --begin;
        }
        return first - begin < FewestRows ? first : begin;
    }

    // Says where the table is that begins with the row `first`.
    void Place(TableProposal& table, std::size_t first, const ValueColumns& columns) const {
        table.Cells = Shapes[first].Cells;
        table.Format = {Separator, Shapes[first].Line, false};
        const bool isBelowRow = first > 0 && Shapes[first - 1].Filled != 0 &&
                                Shapes[first - 1].Line == table.Format.FirstLine - 1;
        if (isBelowRow && IsHeader(first, first - 1, columns)) {
            table.Format.Header = true;
            --table.Format.FirstLine;
        }
        FindNames(table, first, columns);
    }

    // Whether the row can name the table's columns: none that holds something would go without a name, and so
    // be lost.
    bool IsHeader(std::size_t first, std::size_t index, const ValueColumns& columns) const {
        const std::size_t named = Shapes[index].Cells;
        if ((named < 2 && Shapes[first].Cells > 1) || !columns.IsUnlike(Shapes[index])) return false;
        const auto losesCells = [&](const RowShape& shape) {
            if (shape.Cells != Shapes[first].Cells) return false;
            bool isLost = false;
            for (std::size_t i = named; i < shape.Cells; ++i) isLost |= shape.Kind(i) != CellKind::Empty;
            return isLost;
        };
        return std::none_of(Shapes.begin() + static_cast<std::ptrdiff_t>(first), Shapes.end(), losesCells);
    }

    // Units repeat and leave cells empty, names don't: of the lines above the table that are nearly as rich
    // in different texts as the richest, the lowest. One gap of blank lines may lie between.
    void FindNames(TableProposal& proposal, std::size_t first, const ValueColumns& columns) const {
        constexpr int LinesOfABlock = 20;
        std::size_t richest = 0;
        std::vector<std::pair<std::size_t, std::size_t>> candidates;  // texts and row, from below
        int gaps = 0;
        int below = Shapes[first].Line;
        const int top = below - LinesOfABlock;
        for (std::size_t i = first; i-- > 0 && Shapes[i].Line >= top;) {
            if (Shapes[i].Line != below - 1 || Shapes[i].Filled == 0) ++gaps;
            below = Shapes[i].Line;
            if (gaps > 1 || IsRow(Shapes[i], columns)) break;
            const std::size_t cells = Shapes[i].Cells;
            if (2 * cells < proposal.Cells || cells > proposal.Cells + 1 || Shapes[i].Filled == 0) continue;
            std::set<std::u16string_view> texts;
            for (const CutCell& cell : Rows[i].Cells) texts.insert(cell.Text);
            candidates.emplace_back(texts.size() - texts.count(u""), i);
            richest = std::max(richest, candidates.back().first);
        }
        const auto found = std::find_if(candidates.begin(), candidates.end(), [&](const auto& candidate) {
            return 5 * candidate.first >= 4 * richest;
        });
        if (found == candidates.end()) return;
        proposal.NamesLine = Shapes[found->second].Line;
        for (const CutCell& cell : Rows[found->second].Cells) {
            if (proposal.Names.size() > AnalysisRecord::LongestText) break;
            proposal.Names += (&cell == &Rows[found->second].Cells.front() ? u"" : u", ") + cell.Text;
        }
    }

    std::vector<CutLine> Rows;
    int Separator;
    std::vector<RowShape> Shapes;
};

// A sidecar turns the detection off, whatever the profile says.
bool IsSettledBySidecar(const ModuleLoader& module, const std::u16string& path) {
    SettingsLayer layer;
    layer.Set(u"AutoFormat", 1);
    const auto filter = module.MakeFilter(path);
    const CCsvImportSettings* const settings = SettingsOf(*filter);
    return settings != nullptr && settings->AutoFormat == 0;
}
}  // namespace

RowShape::RowShape(const CutLine& row) : Line(static_cast<int>(row.Line)), Cells(row.CellCount) {
    for (const CutCell& cell : row.Cells) {
        const CellKind kind = KindOf(cell);
        Kinds.push_back(kind);
        Filled += kind != CellKind::Empty;
        Numbers += kind == CellKind::Number;
        Digits += kind == CellKind::Digits;
    }
}

bool RowShape::LooksLikeData() const {
    if (Numbers + Digits == 0) return false;
    const bool beginsWithValue = Kind(0) == CellKind::Number || Kind(0) == CellKind::Digits;
    return beginsWithValue || 4 * (Numbers + Digits) >= Filled;
}

std::optional<TableProposal> ProposeTable(const ModuleLoader& module, const std::u16string& path) {
    constexpr std::uint64_t LinesLookedAt = 500;
    const auto filter = module.MakeFilter(path);
    ITableReader* const reader = filter->Find<ITableReader>();
    if (reader == nullptr || IsSettledBySidecar(module, path)) return std::nullopt;
    std::optional<TableProposal> best;
    double score = 0;
    std::vector<SplitFile> files;
    for (int separator = 0; separator < SeparatorsCounted; ++separator) {
        const LineCut cut{SeparatorCharOf(static_cast<std::uint32_t>(separator)),
                          TableFormat{separator}.Merges(), LinesLookedAt, AnalysisRecord::MostColumns,
                          AnalysisRecord::LongestText};
        std::vector<CutLine> rows;
        std::string ignored;
        if (!reader->CutLines(cut, rows, ignored)) return std::nullopt;
        files.emplace_back(std::move(rows), separator);
        files.back().Propose(2, best, score);
    }
    // Rows of one cell are a table only where there is no other.
    if (!best) files.front().Propose(1, best, score);
    return best;
}
}  // namespace kelvarin::explain
