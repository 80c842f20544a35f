// The table that a person would see in a file, to compare with the one that the module took.
#pragma once

#include <optional>
#include <string>

#include "host/ModuleLoader.h"

namespace kelvarin::explain {

// A format as the settings of the profile say it.
struct TableFormat {
    int Separator = 0;  // 0 to 3
    int FirstLine = 1;
    bool Header = false;

    // Blanks are the one separator that files repeat to align their columns.
    bool Merges() const { return Separator == 3; }
    int FirstDataLine() const { return FirstLine + (Header ? 1 : 0); }
    bool operator==(const TableFormat&) const = default;
};

struct TableProposal {
    TableFormat Format;
    std::size_t Rows = 0;   // that look like the table's, among the first 500 lines of the file
    std::size_t Cells = 0;  // of each of them
    int LastLine = 0;       // the last of them
    int NamesLine = 0;      // that seems to hold the columns' names; 0 for none
    std::u16string Names;   // the beginning of that line's cells

    // The names are in a line from which the module can't take them.
    bool NamesAreLost() const { return NamesLine != 0 && !(Format.Header && Format.FirstLine == NamesLine); }
};

// The rows of most value that are alike, whatever the separator. Nothing if no rows hold values, or a
// sidecar settles the format.
std::optional<TableProposal> ProposeTable(const ModuleLoader& module, const std::u16string& path);

}  // namespace kelvarin::explain
