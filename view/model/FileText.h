// The lines of a measurement file around one of them, cut into cells.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "host/Reading.h"

namespace kelvarin::view {
// Texts are UTF-8.
struct FileLine {
    std::uint64_t Number = 0;                // from 1
    std::string Text;                        // at most 4000 characters of it
    std::vector<std::pair<int, int>> Cells;  // of a row of the table: where each begins and its length, in
                                             // units of UTF-16 of Text; empty for other lines
};

// Lines from number `first` on, at most `count`; none if the file can't be read. Reads all lines before them:
// to be called where that may take time.
std::vector<FileLine> LinesOf(const std::u16string& path, const Reading& format, std::uint64_t first,
                              std::size_t count);
}  // namespace kelvarin::view
