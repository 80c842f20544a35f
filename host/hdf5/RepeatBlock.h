// One block of the deflate format, written by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvarin::hdf5 {

// A block that says: the last `size` bytes once more. The bytes before and behind it begin and end on whole
// bytes. `size` is a power of two from 256 to 32768, how far the format can look back.
//
// Whole numbers of eight bytes mostly have upper bytes that are all alike; for these this is a thousand times
// faster than to search.
std::vector<std::uint8_t> MakeRepeatBlock(std::size_t size, bool isLast);

}  // namespace kelvarin::hdf5
