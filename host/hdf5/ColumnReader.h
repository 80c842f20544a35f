// Reads a data set block by block.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/hdf5/ChunkedDataset.h"

namespace kelvarin::hdf5 {

// A data set of one dimension, from its first element on. It is open only while a block is read, as there may
// be ten thousand. Every operation raises Hdf5Error.
class ColumnReader {
  public:
    // The data set at a path below a group, which must outlive it. It must have elements of exactly this
    // type.
    ColumnReader(hid_t group, std::string path, const ElementType& type);

    // All elements.
    std::uint64_t Count() const { return All; }

    // Bytes of an element.
    std::size_t Width() const { return Type.Width; }

    // The bytes of the next elements, 1 to `most` of them; empty at the end. Valid until the next call.
    std::span<const std::uint8_t> Next(std::size_t most);

  private:
    void ReadBlock();

    const hid_t Group;
    const std::string Path;
    const ElementType Type;
    std::uint64_t All = 0;
    std::size_t BlockValues = 1;
    std::vector<std::uint8_t> Block;
    std::size_t At = 0;      // bytes of Block that were given out
    std::uint64_t Read = 0;  // elements that were in this block and those before
};

}  // namespace kelvarin::hdf5
