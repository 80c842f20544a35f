// The tables of a file beside the one that is read.
#pragma once

#include <cstdint>
#include <vector>

#include "host/plan/Labels.h"
#include "host/plan/TableSearch.h"

namespace kelvarin::plan {
struct OtherTable {
    std::uint64_t FirstLine =
        0;  // that of its names, from 1: fixed as such, it makes this the table of a plan
    std::uint64_t LastLine = 0;  // of the rows that follow each other
    std::size_t Columns = 0;
    std::size_t Rows = 0;

    bool Holds(std::uint64_t line) const { return line >= FirstLine && line <= LastLine; }
};

// Those among the first lines of a file, cut as `table` is, in the order of the file: a line of names that
// are not those of `table`, and at least three rows below it.
std::vector<OtherTable> FindOtherTables(const FileSample& sample, const FoundTable& table,
                                        const Labels& labels);
}  // namespace kelvarin::plan
