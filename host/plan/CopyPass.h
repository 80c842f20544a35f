// One try to write a copy, from the first line of a file to its last one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/CleanCopy.h"
#include "host/plan/CopyReader.h"
#include "host/plan/CopyRow.h"
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
    // All are borrowed. `only` are the rows that are wanted; null for all. With `sorts` rows may come in any
    // order. `types` are those of the columns.
    CopyPass(const ReadingPlan& plan, const CopyOptions& options, const DeviceRows* only,
             const std::vector<ColumnType>& types, bool sorts, CopyTarget& target);

    // Begins the target. All three raise CFileException.
    void Begin();

    // Takes the next line of the table; false at a row that is out of order, after which nothing can be done.
    bool Take(const CopyLine& line);

    // After the last line; Options.Cancel ends it early.
    void End();

    CopyResult TakeResult();

    // True if a column turned out to be of another type, so that some of its cells should be others.
    bool HasWrongTypes() { return Rows.HasWrongTypes(); }

  private:
    void WriteHeader();
    bool TakeRow(const CopyLine& line);
    bool IsOfOtherTable(std::size_t cells);
    bool IsWanted(const std::vector<std::u16string_view>& cells) const;
    static void LeaveOut(LinesLeftOut& kind, std::uint64_t line);
    bool PutRow(const SortedRow& row);
    void WriteRow(const SortedRow& row);
    void WriteBlock();

    const ReadingPlan& Plan;
    const CopyOptions& Options;
    const DeviceRows* const Only;
    const bool Sorts;
    CopyTarget& Target;
    CopyResult Result;
    RowCopier Rows;
    TimeWriter Times;
    RowSorter Sorter;
    int TimelessBefore = 0;  // lines without a time since the last row, blank ones aside
    bool IsInOtherTable = false;
    std::int64_t First = 0;   // time of the first row
    std::int64_t Before = 0;  // time of the row before
    std::string Block;        // that isn't written yet

    // A row that sums up the others unless one follows it.
    struct HeldRow {
        std::int64_t Time;
        std::uint64_t Line;
        std::string Text;
    };
    std::optional<HeldRow> Held;
};
}  // namespace kelvarin::plan
