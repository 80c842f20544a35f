// How a file is cut into ranges.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvarin::ranges {
// The defaults take up to about 4 MiB for each range that is in memory, two for each thread: up to eight
// bytes for the value of a cell of one byte, and twice the memory of lists while they grow. Tests take
// smaller ones.
struct RangeSizes {
    std::uint64_t LeastFile = std::uint64_t{32} << 20;  // bytes of a file that is read in ranges
    std::uint64_t Range = std::uint64_t{1} << 18;       // bytes
    std::uint64_t HeadLines = 1000;  // read at first by one filter, from whose state the ranges begin
    std::uint64_t LongestLine = std::uint64_t{1} << 20;  // bytes that a range may have more
    int MostColumns = 500;  // of a file that is read in ranges: each thread has signals for them
    std::size_t MostMessages = std::size_t{1} << 20;  // bytes of them in a range
    bool GivesUp = true;                              // once many ranges have to be imported again
    bool AssumesHead = false;  // ranges begin from the state behind the head, however many are joined
};
}  // namespace kelvarin::ranges
