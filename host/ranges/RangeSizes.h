// How a file is cut into ranges.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvarin::ranges {
// The defaults take at most 8 MiB for each thread. Tests take smaller ones.
struct RangeSizes {
    std::uint64_t LeastFile = std::uint64_t{32} << 20;  // bytes of a file that is read in ranges
    std::uint64_t Range = std::uint64_t{1} << 20;       // bytes
    std::uint64_t HeadLines = 1000;  // read at first by one filter, from whose state the ranges begin
    int MostColumns = 1000;          // of a file that is read in ranges: each thread has signals for them
    std::size_t MostMessages = std::size_t{3} << 20;  // bytes of their texts in a range
    bool GivesUp = true;                              // once many ranges have to be imported again
    bool AssumesHead = false;  // ranges begin from the state behind the head, however many are joined
};
}  // namespace kelvarin::ranges
