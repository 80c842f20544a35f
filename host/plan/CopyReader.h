// The lines of a file on their way into a copy: cut, with the time of each row.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "contract/StdioFileEx.h"
#include "host/plan/Cells.h"
#include "host/plan/QuickCut.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
enum class CopyLineKind {
    Blank,
    Header,    // the header line or the units line again
    Timeless,  // another line without a time
    Row,
};

struct CopyLine {
    std::uint64_t Number = 0;  // from 1
    CopyLineKind Kind = CopyLineKind::Blank;
    std::int64_t Time = 0;                                    // of a row, in ns
    const std::vector<std::u16string_view>* Cells = nullptr;  // of a row
    const QuickCut* Quick = nullptr;                          // has cut the line; null: LineCutter has
};

class CopyReader {
  public:
    // Opens the file. The plan is borrowed and must have times. Raises CFileException, as Next does.
    CopyReader(const std::u16string& source, const ReadingPlan& plan);

    // The next line of the table, valid until the next call; false at the end.
    bool Next(CopyLine& line);

    // The part of the file that was read, from 0 to 1.
    double Share() const;

  private:
    void Cut();
    CopyLineKind KindOf(std::int64_t& time);
    bool IsHeader() const;
    bool IsRow() const;

    const ReadingPlan& Plan;
    CStdioFileEx File;
    double Length = 1;  // in bytes
    LineCutter Cutter;
    QuickCut Quick;
    TimeWalk Walk;
    std::u16string Text;
    std::uint64_t Number = 0;  // of the line that was read last
    bool IsQuick = false;
    const std::vector<std::u16string_view>* Cells = nullptr;
    std::vector<std::u16string> HeaderLines;  // as they are in the file, trimmed
};
}  // namespace kelvarin::plan
