// What a plan replies to the questions of a run, and what the run loses of the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/plan/LineMap.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// What a run has lost so far, and what it knows of the rows above.
struct RunLosses {
    bool AreRowsOutOfOrder = false;
    bool HasTotal = false;            // a row that sums up the others was left out
    bool AreTimesUnread = false;      // that the plan reads
    std::vector<CellCounts> Refused;  // by column; integers with marks among them
};

// What the replies of a guide depend on, beside what the run has lost.
struct GuideTraits {
    bool ReadsTimes = false, HasTimes = false;
    char16_t Mark = u'.';
    std::size_t Width = 0;
    std::vector<ColumnType> Types;  // by column

    bool operator==(const GuideTraits&) const = default;
};

// The guide of one run, or of a range of its file. One thread at a time.
class RunGuide final : public IReadingGuide {
  public:
    // The plan and the lines of the copy that is read, null for none, outlive the guide. `readsTimes`: the
    // times are those of the plan.
    RunGuide(const ReadingPlan& plan, const LineMap* copyLines, bool readsTimes)
        : Plan(plan), CopyLines(copyLines), ReadsTimes(readsTimes) {}

    bool IsMissing(int column, const char16_t* cell) override;
    void OnMarkedInteger(int column, const char16_t* cell) override;
    bool IsNoRow(const DroppedRow& row) override;
    std::uint64_t SourceLine(std::uint64_t line) const override {
        return CopyLines == nullptr ? line : CopyLines->SourceLine(line);
    }

    // True if the run has lost what a copy of the file keeps.
    bool AreLossesAvoidable() const;

    // For a run that goes on behind another one of the same file.
    const RunLosses& Losses() const { return Lost; }
    void BeginBehind(const RunLosses& losses) { Lost = losses; }

    // None for a plan that knows of the end of the file.
    std::optional<GuideTraits> Traits() const;

    // A guide for a range of the run, which begins as this one is now.
    RunGuide ForRange() const;

    // True if this one, which knows all that is above the range by now, would have given the same replies.
    bool Confirms(const RunGuide& range) const;

    // Adds the losses of a range.
    void Add(const RunGuide& range);

  private:
    CellCounts& RefusedIn(int column);

    const ReadingPlan& Plan;
    const LineMap* const CopyLines;
    const bool ReadsTimes;
    bool HadTotal = false;  // as the range began
    RunLosses Lost;
};
}  // namespace kelvarin::plan
