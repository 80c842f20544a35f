#include "host/plan/OtherTables.h"

#include <algorithm>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
class OtherSearch {
  public:
    OtherSearch(const FileSample& sample, const FoundTable& table, const Labels& labels)
        : Sample(sample), Table(table), Own(labels) {}

    std::vector<OtherTable> Find() const {
        constexpr std::size_t FewestRows = 3;
        std::vector<OtherTable> found;
        std::size_t at = 0;
        while (at < Sample.Head) {
            const std::size_t first = IsHeader(at) ? FirstRowBelow(at) : Sample.Head;
            std::size_t end = first;
            while (end < Sample.Head && IsRowOf(at, end)) ++end;
            if (end - first < FewestRows || first == Table.First || !MayBegin(at, first)) {
                ++at;
                continue;
            }
            found.push_back({Sample.Lines[at].Number, Sample.Lines[end - 1].Number, Table.Shapes[first].Cells,
                             end - first});
            at = end;
        }
        return found;
    }

  private:
    std::u16string_view TextOf(std::uint64_t line) const {
        if (line == 0) return {};
        return TrimWhiteSpace(Sample.Lines[static_cast<std::size_t>(line - 1)].Text);
    }

    // Words alone that don't name or describe the columns of the table itself, here or again.
    bool IsHeader(std::size_t at) const {
        const RowShape& shape = Table.Shapes[at];
        if (shape.Filled < 2 || shape.Numbers + shape.Values != 0) return false;
        const std::u16string_view text = TrimWhiteSpace(Sample.Lines[at].Text);
        return text != TextOf(Own.NamesLine) && text != TextOf(Own.UnitsLine);
    }

    // Above rows as wide as those of the table itself a line of words may be a note: names are as many as the
    // cells, and a title or a blank line is above them.
    bool MayBegin(std::size_t header, std::size_t first) const {
        if (Table.Shapes[first].Cells != Table.Width) return true;
        const RowShape& names = Table.Shapes[header];
        return names.Filled == Table.Width && (header == 0 || Table.Shapes[header - 1].Filled < 2);
    }

    // Between names and rows there may be units and blank lines.
    std::size_t FirstRowBelow(std::size_t header) const {
        constexpr std::size_t MostBetween = 3;
        const std::size_t end = std::min(header + MostBetween + 2, Sample.Head);
        std::size_t at = header + 1;
        while (at < end && Table.Shapes[at].Numbers + Table.Shapes[at].Values == 0) ++at;
        return at < end ? at : Sample.Head;
    }

    bool IsRowOf(std::size_t header, std::size_t at) const {
        const std::size_t names = Table.Shapes[header].Cells;
        const RowShape& row = Table.Shapes[at];
        const CellKind first = row.Kind(0);
        // A key and its value have one number.
        const bool beginsWithValue = first != CellKind::Word && first != CellKind::Empty;
        return row.Cells + 1 >= names && row.Cells <= names + 1 &&
               (beginsWithValue ? row.Numbers + row.Values : row.Numbers) > 1;
    }

    const FileSample& Sample;
    const FoundTable& Table;
    const Labels& Own;
};
}  // namespace

std::vector<OtherTable> FindOtherTables(const FileSample& sample, const FoundTable& table,
                                        const Labels& labels) {
    return OtherSearch(sample, table, labels).Find();
}
}  // namespace kelvarin::plan
