// Files of one kind: the same table with the same names, units and times, whatever is above it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
struct FileKind {
    // As far as it is the same for all of them: without a sample, rows and numbers of lines, but for
    // NamesLine, which is 0 if no line names the columns. Mark is NUL if no number shows it. It has times.
    ReadingPlan Plan;
    std::size_t Files = 0;     // that the plan was found from
    std::u16string OrderFile;  // the one that proves the order of day and month; empty for none
};

// `plan` is that of the file called `name`, and has times.
FileKind KindFrom(ReadingPlan plan, const std::u16string& name);

// The cells of a column of this type, as if so many rows had been looked at: of a plan that keeps no counts.
// `hasWords`: its truth values are words.
CellCounts UsualCells(const PlannedColumn& column, bool hasWords, std::uint64_t rows);

// Adds what another file of the kind shows. `plan` is one that KindSearch::Follow has returned.
void AddFile(FileKind& kind, const ReadingPlan& plan, const std::u16string& name);

// Makes the kind hold the cells of all rows of a file, by column, where these made a column of `plan` another
// type than that of the kind. False if none is.
bool WidenTypes(FileKind& kind, const ReadingPlan& plan, const std::vector<CellCounts>& cells);

// A sample of a file that kinds are tried on; all outlive the object. What kinds have in common is looked for
// once, so that there may be many.
class KindSearch {
  public:
    KindSearch(const FileSample& sample, const std::vector<FileKind>& kinds);

    // The plan of the file by the kind with this index; nothing if it is of another one. A file without a row
    // yet may be of a kind whose columns have names.
    std::optional<ReadingPlan> Follow(std::size_t kind);

  private:
    void FindNames(const Cut& how);
    std::optional<FoundTable> TableLike(std::size_t kind);

    const FileSample& Sample;
    const std::vector<FileKind>& Kinds;
    std::vector<std::size_t> BelowNames;  // by kind: the index of the line below its names; 0 for none
    std::optional<FoundTable> Own;        // that is found without a kind
    bool IsOwnFound = false;              // it was looked for
};

// How a file with this plan differs from a kind, a sentence each in UTF-8 and in the language in force; of
// many columns the first are named. Empty for a file of the kind.
std::vector<std::string> DifferencesOf(const ReadingPlan& plan, const FileKind& kind);

// The columns of a file of the kind that hold what those of the others don't, a sentence each.
std::vector<std::string> TypeDifferencesOf(const ReadingPlan& plan, const FileKind& kind);
}  // namespace kelvarin::plan
