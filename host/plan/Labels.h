// What the lines above a table say of its columns.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/plan/TableSearch.h"

namespace kelvarin::plan {
struct Label {
    std::u16string Name;              // empty if there is none
    std::u16string Unit;              // of a units row, else of the name; empty if there is none
    std::vector<std::u16string> All;  // every text above the column, the name among them
};

struct Labels {
    std::vector<Label> Columns;
    std::uint64_t NamesLine = 0;  // of the file, from 1; 0 if there is none
    std::uint64_t UnitsLine = 0;
};

// Takes leading cells off a line of names that has more than `width`: in "# time value" and "# columns: time
// value" neither the mark nor the word is a name.
void DropIntroduction(std::vector<std::u16string>& cells, std::size_t width);

Labels FindLabels(const FileSample& sample, const FoundTable& table);
}  // namespace kelvarin::plan
