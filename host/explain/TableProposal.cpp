#include "host/explain/TableProposal.h"

#include <algorithm>
#include <set>

#include "host/explain/RowShape.h"

namespace kelvarin::explain {

namespace {

constexpr std::size_t RowsOfABeginning = 10;
constexpr int LinesOfABlock = 20;

// The rows of a file as one separator splits them.
class SplitFile {
  public:
    SplitFile(std::vector<SeenRow> rows, int separator) : Rows(std::move(rows)), Separator(separator) {
        for (const SeenRow& row : Rows) Shapes.emplace_back(row);
    }

    // The best table among rows of this separator and of so many cells at least, with its score.
    void Propose(std::size_t fewestCells, std::optional<TableProposal>& best, double& bestScore) const;

  private:
    std::size_t WiderBeginning(const ValueColumns& columns, std::size_t first) const;
    void Place(TableProposal& table, std::size_t first, const ValueColumns& columns) const;
    std::optional<std::size_t> Beginning(const ValueColumns& columns, std::size_t cells) const;
    bool IsRowOf(const RowShape& shape, const ValueColumns& columns, std::size_t cells) const {
        return shape.Cells() == cells && shape.LooksLikeData() && !columns.IsUnlike(shape);
    }
    bool IsHeader(std::size_t first, std::size_t index, const ValueColumns& columns) const;
    void FindNames(TableProposal& proposal, std::size_t first, const ValueColumns& columns) const;
    std::size_t DistinctTexts(std::size_t index) const;

    std::vector<SeenRow> Rows;
    int Separator;
    std::vector<RowShape> Shapes;
};

void SplitFile::Propose(std::size_t fewestCells, std::optional<TableProposal>& best,
                        double& bestScore) const {
    std::set<std::size_t> widths;
    for (const RowShape& shape : Shapes) {
        if (shape.Cells() >= fewestCells && shape.LooksLikeData()) widths.insert(shape.Cells());
    }
    for (const std::size_t cells : widths) {
        const ValueColumns columns(Shapes, cells);
        const auto first = columns.IsEmpty() ? std::nullopt : Beginning(columns, cells);
        if (!first) continue;
        TableProposal table;
        double value = 0;
        for (std::size_t i = *first; i < Shapes.size(); ++i) {
            if (!IsRowOf(Shapes[i], columns, cells)) continue;
            ++table.Rows;
            table.LastLine = Shapes[i].Line();
            value += Shapes[i].Value();
        }
        // Values per cell keep a separator from winning that cuts values into pieces.
        const double score = value * value / static_cast<double>(table.Rows * cells);
        if (score <= bestScore) continue;
        bestScore = score;
        Place(table, WiderBeginning(columns, *first), columns);
        best = table;
    }
}

// Columns that end earlier than others leave shorter rows below: the table begins with the wider rows that
// stand directly above.
std::size_t SplitFile::WiderBeginning(const ValueColumns& columns, std::size_t first) const {
    constexpr std::size_t FewestRows = 3;
    std::size_t begin = first;
    while (begin > 0 && Shapes[begin - 1].Line() == Shapes[begin].Line() - 1 &&
           Shapes[begin - 1].Cells() >= Shapes[first].Cells() && Shapes[begin - 1].LooksLikeData() &&
           !columns.IsUnlike(Shapes[begin - 1])) {
        --begin;
    }
    return first - begin < FewestRows ? first : begin;
}

// Says where the table stands that begins with the row `first`.
void SplitFile::Place(TableProposal& table, std::size_t first, const ValueColumns& columns) const {
    table.Cells = Shapes[first].Cells();
    table.Format = {Separator, Shapes[first].Line(), false};
    const bool isBelowRow =
        first > 0 && !Shapes[first - 1].IsBlank() && Shapes[first - 1].Line() == table.Format.FirstLine - 1;
    if (isBelowRow && IsHeader(first, first - 1, columns)) {
        table.Format.Header = true;
        --table.Format.FirstLine;
    }
    FindNames(table, first, columns);
}

// The first row of the table after which nearly all are its rows: not a line of the preamble that looks like
// one.
std::optional<std::size_t> SplitFile::Beginning(const ValueColumns& columns, std::size_t cells) const {
    for (std::size_t i = 0; i < Shapes.size(); ++i) {
        if (!IsRowOf(Shapes[i], columns, cells)) continue;
        std::size_t looked = 0;
        std::size_t good = 0;
        for (std::size_t k = i; k < Shapes.size() && looked < RowsOfABeginning; ++k) {
            if (Shapes[k].IsBlank()) continue;
            ++looked;
            good += IsRowOf(Shapes[k], columns, cells);
        }
        if (5 * good >= 4 * looked || (good > 1 && good + 1 == looked)) return i;
    }
    return std::nullopt;
}

// Whether the row can name the table's columns: none that holds something would go without a name, and so
// be lost.
bool SplitFile::IsHeader(std::size_t first, std::size_t index, const ValueColumns& columns) const {
    const std::size_t named = Shapes[index].Cells();
    if ((named < 2 && Shapes[first].Cells() > 1) || !columns.IsUnlike(Shapes[index])) return false;
    return std::none_of(Shapes.begin() + static_cast<std::ptrdiff_t>(first), Shapes.end(),
                        [&](const RowShape& shape) {
                            bool isLost = false;
                            for (std::size_t i = named; i < shape.Cells(); ++i)
                                isLost |= shape.Kind(i) != CellKind::Empty;
                            return isLost && shape.Cells() == Shapes[first].Cells();
                        });
}

std::size_t SplitFile::DistinctTexts(std::size_t index) const {
    std::set<std::u16string> texts;
    for (const SeenCell& cell : Rows[index].Cells) {
        if (!cell.Text.empty()) texts.insert(cell.Text);
    }
    return texts.size();
}

// Units repeat and leave cells empty, names don't: of the lines above the table that are nearly as rich in
// different texts as the richest, the lowest. One gap of blank lines may lie between.
void SplitFile::FindNames(TableProposal& proposal, std::size_t first, const ValueColumns& columns) const {
    std::size_t richest = 0;
    std::vector<std::pair<std::size_t, std::size_t>> candidates;  // texts and row, from below
    int gaps = 0;
    int below = Shapes[first].Line();
    const int top = below - LinesOfABlock;
    for (std::size_t i = first; i-- > 0 && Shapes[i].Line() >= top;) {
        if (Shapes[i].Line() != below - 1 || Shapes[i].IsBlank()) ++gaps;
        below = Shapes[i].Line();
        const bool isRow = Shapes[i].LooksLikeData() && !columns.IsUnlike(Shapes[i]);
        if (gaps > 1 || isRow) break;
        const std::size_t cells = Shapes[i].Cells();
        if (2 * cells < proposal.Cells || cells > proposal.Cells + 1 || Shapes[i].IsBlank()) continue;
        candidates.emplace_back(DistinctTexts(i), i);
        richest = std::max(richest, candidates.back().first);
    }
    for (const auto& [texts, row] : candidates) {
        if (5 * texts < 4 * richest) continue;
        proposal.NamesLine = Shapes[row].Line();
        for (const SeenCell& cell : Rows[row].Cells) {
            if (proposal.Names.size() > AnalysisRecord::LongestText) break;
            proposal.Names += (&cell == &Rows[row].Cells.front() ? u"" : u", ") + cell.Text;
        }
        return;
    }
}

}  // namespace

std::optional<TableProposal> ProposeTable(const ModuleLoader& module, const std::u16string& path) {
    std::optional<TableProposal> best;
    double score = 0;
    std::vector<SplitFile> files;
    for (int separator = 0; separator < SeparatorsCounted; ++separator) {
        files.emplace_back(RowsSplitBy(module, path, separator), separator);
        files.back().Propose(2, best, score);
    }
    // Rows of one cell are a table only where there is no other.
    if (!best) files.front().Propose(1, best, score);
    return best;
}

}  // namespace kelvarin::explain
