// The module's own answer to other format settings than those in force.
#pragma once

#include <string>

#include "host/ModuleLoader.h"
#include "host/explain/AnalysisRecord.h"

namespace kelvarin::explain {

// A format as the settings of the profile say it.
struct TableFormat {
    int Separator = 0;  // 0 to 3
    int FirstLine = 1;
    bool Header = false;

    // Only blanks may stand in rows between two cells.
    bool Merges() const { return Separator == 3; }
    int FirstDataLine() const { return FirstLine + (Header ? 1 : 0); }
    bool operator==(const TableFormat&) const = default;
};

// Analyses the file under this format into `record`. False if the format doesn't take effect, since a sidecar
// goes before the profile, or the file can't be read.
bool TryFormat(const ModuleLoader& module, const std::u16string& path, const TableFormat& format,
               AnalysisRecord& record);

// The rows of the first 500 lines, split by this separator; blank lines are none. Empty as TryFormat is
// false.
std::vector<SeenRow> RowsSplitBy(const ModuleLoader& module, const std::u16string& path, int separator);

}  // namespace kelvarin::explain
