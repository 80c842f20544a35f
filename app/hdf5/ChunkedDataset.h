// A data set of one dimension that grows chunk by chunk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "app/hdf5/ChunkPacker.h"
#include "app/hdf5/Hdf5Handle.h"

// What a file's data sets share.
struct DatasetPlace {
    hid_t File;
    ChunkPacker& Packer;
};

// The element type of a data set.
struct ElementType {
    hid_t Id;           // as stored and in memory
    std::size_t Width;  // in bytes
};

// Writes whole chunks past the library's own filters. It belongs to no group until it is linked.
class ChunkedDataset {
  public:
    // Makes the data set with chunks of `chunkValues` elements. Elements never written read as `fill` if that
    // isn't null.
    void Create(const DatasetPlace& place, const ElementType& type, std::size_t chunkValues,
                const void* fill);

    bool IsOpen() const { return Set.IsOpen(); }

    // Writes a whole chunk of which the first elements count, so that there are now `count` of them. Chunks
    // may be left out but come in order.
    void Write(std::uint64_t chunk, std::span<const std::uint8_t> bytes, std::uint64_t count);

    // Sets the number of elements, which is not below that of the last Write.
    void SetCount(std::uint64_t count);

    hid_t Id() const { return Set; }

  private:
    Hdf5Handle Set;
    ChunkPacker* Packer = nullptr;
    std::size_t ChunkValues = 0;
    std::size_t Width = 0;
};
