// The table that a person would see in a file, to compare with the one that the module took.
#pragma once

#include <optional>
#include <string>

#include "host/explain/FormatTrial.h"

namespace kelvarin::explain {

struct TableProposal {
    TableFormat Format;
    std::size_t Rows = 0;   // that look like the table's, among the lines looked at
    std::size_t Cells = 0;  // of each of them
    int LastLine = 0;       // the last of them
    int NamesLine = 0;      // where the names seem to stand; 0 for nowhere
    std::u16string Names;   // the beginning of that line's cells

    // The names stand where the module can't take them from.
    bool NamesAreLost() const { return NamesLine != 0 && !(Format.Header && Format.FirstLine == NamesLine); }
};

// The rows of most value that are alike, whatever the separator. Nothing if no rows hold values, or a
// sidecar settles the format.
std::optional<TableProposal> ProposeTable(const ModuleLoader& module, const std::u16string& path);

}  // namespace kelvarin::explain
