// One reading of a file that writes its copy.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/CleanCopy.h"
#include "host/plan/CopyCell.h"
#include "host/plan/RowSorter.h"

namespace kelvarin::plan {
// Where a copy goes. All raise CFileException.
class CopyTarget {
  public:
    virtual ~CopyTarget() = default;

    // Begins a new copy in place of one that was begun before.
    virtual void Begin() = 0;
    virtual void Write(std::string_view bytes) = 0;
    virtual void Finish() = 0;
};

class CopyPass {
  public:
    enum class Outcome { Done, OutOfOrder, Interrupted };

    // All are borrowed. With `sorts` rows may come in any order. `types` are those of the columns.
    CopyPass(const ReadingPlan& plan, const CopyOptions& options, const std::vector<ColumnType>& types,
             bool sorts, CopyTarget& target);

    // Reads the file once; ends early at a row that is out of order, unless it sorts. `onShare` gets the
    // part of the file that was read, from 0 to 1. Raises CFileException.
    Outcome Run(const std::u16string& source, const std::function<void(double)>& onShare);

    // After a pass that is done.
    CopyResult TakeResult();

    // True if a column turned out to be of another type, so that some of its cells should be others.
    bool HasWrongTypes() const;

  private:
    bool IsInterrupted() const { return Options.Cancel != nullptr && *Options.Cancel; }
    void WriteHeader();
    bool TakeLine(std::u16string_view line);
    bool IsRow(const std::vector<std::u16string_view>& cells) const;
    bool IsOfOtherTable(std::size_t cells);
    bool IsWanted(const std::vector<std::u16string_view>& cells) const;
    static void LeaveOut(LinesLeftOut& kind, std::uint64_t line);
    bool TakeRow(std::int64_t time, std::uint64_t line);
    void MakeRow(const std::vector<std::u16string_view>& cells);
    void WriteRow(const SortedRow& row);
    void WriteBlock();

    const ReadingPlan& Plan;
    const CopyOptions& Options;
    const bool Sorts;
    CopyTarget& Target;
    CopyResult Result;
    LineCutter Cutter;
    TimeWalk Walk;
    TimeWriter Times;
    RowSorter Sorter;
    std::vector<CellCopier> Columns;
    std::vector<std::u16string> HeaderLines;  // as they are in the file, trimmed
    std::uint64_t Line = 0;                   // that was read last
    int TimelessBefore = 0;                   // lines without a time since the last row, blank ones aside
    bool IsInOtherTable = false;
    std::int64_t First = 0;   // time of the first row
    std::int64_t Before = 0;  // time of the row before
    std::string Row;          // without its time
    std::string Block;        // that isn't written yet

    // A row that sums up the others unless one follows it.
    struct HeldRow {
        std::int64_t Time;
        std::uint64_t Line;
        std::string Text;
    };
    std::optional<HeldRow> Held;
    std::uint64_t DeclaredMissing = 0;  // cells
};
}  // namespace kelvarin::plan
