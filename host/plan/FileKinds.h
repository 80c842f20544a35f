// The kinds of the files of one command, and how a file goes with them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/plan/FileKind.h"

namespace kelvarin::plan {
struct FileKinds {
    std::vector<FileKind> All;
    std::u16string
        PlanFile;  // they were read from there, and other files aren't read; empty: they were found

    bool AreFound() const { return PlanFile.empty(); }
};

// The kind of most files; the first of as many. There must be one.
const FileKind& MostCommon(const FileKinds& kinds);

// Looks at all files, the largest first, since these show most. A file without a table, or that can't be
// read, is of no kind.
FileKinds FindKinds(std::vector<std::u16string> paths);

// The plan of a file that is read as those of its kind. Where the kinds were found, one of another kind gets
// the plan that is found for it alone; where they were read, it gets none, and `unlike` says how it differs
// from them. Nothing for a file without a table. Raises CFileException.
std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FileKinds& kinds,
                                    std::vector<std::string>& unlike);
}  // namespace kelvarin::plan
