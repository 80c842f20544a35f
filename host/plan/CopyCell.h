// One cell of a file becomes one of its copy.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/plan/CellTally.h"
#include "host/plan/QuickCells.h"
#include "host/plan/ReadingPlan.h"
#include "host/plan/RowText.h"
#include "host/plan/TextMemo.h"

namespace kelvarin::plan {
// Appends a text as a cell that every reader takes as it is: in quotes if it holds a blank, a tab or a quote,
// with a blank for each character that would end the line.
void AppendTextCell(std::u16string_view text, std::string& out);

// The cells of one column, counted as they are in the file.
//
// In a column of numbers or truth values a number gets a decimal point, no separators of thousands and no
// unit, and a marker of a missing value becomes an empty cell; in one of truth values their words become
// "true" or "false". A cell that is no value of its column stays as it is, as all texts do.
class CellCopier {
  public:
    // `mark` is the decimal mark of the file. The column outlives this object. `elsewhere` are cells of the
    // column in other files of its kind, null for none, which its type must hold as well.
    CellCopier(const PlannedColumn& column, ColumnType type, char16_t mark,
               const CellCounts* elsewhere = nullptr);

    void Append(std::u16string_view cell, RowText& out) {
        const bool mayBePlain = cell.empty() || cell.front() <= u'9';
        if (mayBePlain && AppendPlain(cell, out)) return;
        if (TextMemo::Entry* const known = Memo.Find(cell)) {
            ++known->Repeats;
            out.AddPadded(known->Padded.data(), known->WrittenSize());
        } else {
            AppendNew(cell, out);
        }
    }

    // The least of the looks of cells that stay as they are, but for their decimal mark.
    CellLook LeastKept() const {
        return Own == Kind::Texts && Mark != u'.' ? CellLook::Empty : CellLook::Decimal;
    }

    // Counts such a cell as Append does.
    void Count(CellLook look) { Plain.Add(look); }

    // As Append does, for a cell of a line and in few steps: counts it, and gives the number of characters at
    // its beginning that the copy has, which are in the bytes of the line. 0 for a cell that only Append
    // takes.
    std::size_t Take(const QuickCut& line, std::size_t cell) { return Quick.Take(line, cell); }

    // Of all cells so far, as all below.
    CellCounts Counts();

    // What the cells are.
    ColumnType Type();

    // True if the column turned out to be of another type than it was copied as, and its cells would be
    // others then.
    bool IsWrongType();

    // Cells that are not as in the file: values written in another way, and markers.
    std::uint64_t ChangedValues();
    std::uint64_t ChangedMarkers();

  private:
    enum class Kind { Texts, Truths, Numbers };

    static Kind KindOf(ColumnType type);
    bool AppendPlain(std::u16string_view cell, RowText& out);
    void AppendNew(std::u16string_view cell, RowText& out);
    void WriteAnew(std::u16string_view cell);
    void CountRepeats(TextMemo::Entry& entry);
    void CountRepeats();
    bool Rewrite(std::u16string_view cell, const CellFacts& facts, std::uint64_t cells);
    bool RewriteNumber(std::u16string_view cell, const NumberLook& look, std::uint64_t cells);
    bool RewriteAmount(std::u16string_view cell);
    bool IsRewritten(std::u16string_view cell) const;
    std::uint64_t RewrittenNumbers();

    const PlannedColumn& Column;
    const Kind Own;
    const char16_t Mark;
    const CellCounts* const Elsewhere;
    CellTally Plain;
    QuickCells Quick;
    TextMemo Memo;
    CellCounts All;                  // but those of Plain and Quick, and the repeats in Memo
    std::string Written, Rewritten;  // of the cell at hand
    // Cells of All that are rewritten, in a column of texts: that would be if it were none.
    std::uint64_t Numbers = 0, Truths = 0, Markers = 0;
    bool HasUnclearTruth = false;  // "open": which of both is true can't be told
};
}  // namespace kelvarin::plan
