// A file of any bytes, its lines as the reader of the module finds them, and the plan that is found for it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contract/StdioFileEx.h"
#include "fuzz/kit/Check.h"
#include "host/plan/ReadingPlan.h"

inline std::vector<std::u16string> LinesOf(const std::u16string& path) {
    CStdioFileEx file;
    CFileException error(false);
    Check(file.Open(path.c_str(), CFile::modeRead | CFile::typeText, &error), "the file opens");
    std::vector<std::u16string> lines;
    for (std::u16string line; file.ReadString(line);) lines.push_back(line);
    return lines;
}

struct PlannedFile {
    // The file is that of `home`, so one lives at a time.
    PlannedFile(const FuzzHome& home, std::string_view bytes)
        : Path(home.Write(bytes)), Lines(LinesOf(Path)), Plan(kelvarin::plan::FindPlan(Path)) {}

    const std::u16string Path;
    const std::vector<std::u16string> Lines;
    const std::optional<kelvarin::plan::ReadingPlan> Plan;
};
