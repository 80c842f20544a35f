// The cells of a row become text of a copy.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/CleanCopy.h"
#include "host/plan/CopyCell.h"
#include "host/plan/CopyReader.h"

namespace kelvarin::plan {
class RowCopier {
  public:
    // The plan is borrowed. `types` are those of the columns.
    RowCopier(const ReadingPlan& plan, CopyLayout layout, const std::vector<ColumnType>& types);

    // What stands before the time of a row in a copy in place, or after it in one for people; valid until the
    // next call.
    std::string_view TextOf(const CopyLine& row);

    // True if a column turned out to be of another type, so that some of its cells should be others.
    bool HasWrongTypes();

    // Adds what the rows so far say of the cells.
    void Report(CopyResult& result);

  private:
    void AddCells(const std::vector<std::u16string_view>& cells);
    void AddCell(std::size_t column, std::u16string_view cell);
    bool AddWhole(const QuickCut& line);
    void AddPieces(const QuickCut& line);
    bool AddPiece(const QuickCut& line, std::size_t column);

    const ReadingPlan& Plan;
    const bool IsInPlace;
    std::vector<CellCopier> Columns;
    std::vector<CellLook> LeastKept;  // by column; CellLook::Other for those of the time
    std::vector<CellLook> Looks;      // of the row at hand, by column
    bool MayBeWhole = true;           // the row before was one that AddWhole takes
    RowText Text;
    std::uint64_t DeclaredMissing = 0;  // cells
    std::uint64_t ExtraCells = 0;
};
}  // namespace kelvarin::plan
