// The readings of a file that make its copies.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/plan/CleanCopy.h"
#include "host/plan/CopyPass.h"

namespace kelvarin::plan {
// A copy until it is complete. The plan knows a sample of the file: where another row shows that rows have to
// be sorted, or all cells that a column has another type, the copy begins anew; each of both happens once at
// most.
class PendingCopy {
  public:
    PendingCopy(const ReadingPlan& plan, const CopyOptions& options, const DeviceRows* only,
                CopyTarget& target);

    bool IsComplete() const { return Complete; }

    // Begins a reading, which gives lines to Take until it ends. All but Take raise CFileException.
    void Begin();

    // False if the rest of the reading is of no use.
    bool Take(const CopyLine& line);
    void End();

    // After the last reading.
    CopyResult Finish();

  private:
    const ReadingPlan& Plan;
    const CopyOptions& Options;
    const DeviceRows* const Only;
    CopyTarget& Target;
    std::vector<ColumnType> Types;
    bool AreTypesFinal = false;
    bool Sorts;
    bool Complete = false;
    std::optional<CopyPass> Pass;
    CopyResult Result;
};

class CopyRun {
  public:
    // All are borrowed.
    CopyRun(const std::u16string& source, const ReadingPlan& plan, const CopyOptions& options);

    // Adds a copy of these rows; null for all. Both are borrowed.
    void Add(const DeviceRows* only, CopyTarget& target);

    // The results of the copies, or of one that was interrupted and stands for all. The last of them may be
    // of a copy that failed, after which none is made. Raises CFileException.
    std::vector<CopyResult> Make();

    // After Make has raised something: the results of the copies before, and one of this failure.
    std::vector<CopyResult> FailedFor(const std::string& failure);

  private:
    void ReadOnce();
    void ShowProgress(double share);

    const std::u16string& Source;
    const ReadingPlan& Plan;
    const CopyOptions& Options;
    std::deque<PendingCopy> Copies;
    std::vector<CopyResult> Results;
    std::uint32_t Shown = 0;  // percentage
};
}  // namespace kelvarin::plan
