// What the settings in force say of a table, whoever has set them.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "contract/ImportFilter.h"
#include "host/Reading.h"
#include "host/SettingText.h"

namespace kelvarin::plan {
// What is settled of a table before it is looked for; the rest is found.
struct FixedTable {
    std::optional<char16_t> Separator;  // NUL: a line is one cell
    std::optional<bool> Merges;         // a run of separators is one
    std::uint64_t FirstLine = 0;        // of the names or the rows, from 1; 0: not settled
    std::optional<bool> HasNames;       // FirstLine holds the names

    bool IsFixed() const { return Separator || Merges || FirstLine != 0 || HasNames; }
};

// All of a table that is read already.
FixedTable TableOf(const Reading& reading);

// What the settings of `filter` fix: all with AutoFormat=0, and with AutoFormat=1 among the chosen ones,
// which asks for the table that the module detects; else what is chosen. Analyses the filter's file in the
// second case.
FixedTable TableFixedBy(CImportFilter& filter, const std::vector<ParsedSetting>& chosen);
}  // namespace kelvarin::plan
