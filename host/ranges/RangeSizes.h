// How a file is cut into ranges.
#pragma once

#include <cstdint>

namespace kelvarin::ranges {
// The defaults take at most 8 MiB for each thread. Tests take smaller ones.
struct RangeSizes {
    std::uint64_t LeastFile = std::uint64_t{32} << 20;  // bytes of a file that is read in ranges
    std::uint64_t Range = std::uint64_t{1} << 20;       // bytes
    std::uint64_t HeadLines = 1000;  // read at first by one filter, from whose state the ranges begin
    bool GivesUp = true;             // once many ranges have to be imported again
};
}  // namespace kelvarin::ranges
