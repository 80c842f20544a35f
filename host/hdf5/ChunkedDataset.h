// A data set of one dimension that grows chunk by chunk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "host/hdf5/ChunkPacker.h"
#include "host/hdf5/Hdf5Handle.h"

namespace kelvarin::hdf5 {

// Where the data sets of a device are made.
struct DatasetPlace {
    hid_t Group;  // holds them until they get their place
    ChunkPacker& Packer;
    std::uint64_t Made = 0;
};

// The element type of a data set.
struct ElementType {
    hid_t Id;           // as stored and in memory
    std::size_t Width;  // in bytes
};

// Writes whole chunks past the library's own filters. Between two writes it is closed: an open one takes
// twenty kilobytes, and there may be ten thousand.
class ChunkedDataset {
  public:
    // The place must outlive it.
    ChunkedDataset(DatasetPlace& place, const ElementType& type) : Place(place), Type(type) {}

    // Makes the data set with chunks of `chunkValues` elements. Elements never written read as `fill` if that
    // isn't null.
    void Create(std::size_t chunkValues, const void* fill);

    bool IsMade() const { return !Name.empty(); }

    // Writes a whole chunk of which the first elements count, so that there are now `count` of them. Chunks
    // may be left out but come in order.
    void Write(std::uint64_t chunk, std::span<const std::uint8_t> bytes, std::uint64_t count);

    // Sets the number of elements, which is not below that of the last Write.
    void SetCount(std::uint64_t count);

    // Gives it its place in a group.
    void MoveInto(hid_t group, const char* name);

  private:
    Hdf5Handle Open() const;

    DatasetPlace& Place;
    const ElementType Type;
    std::string Name;
    std::size_t ChunkValues = 0;
};

}  // namespace kelvarin::hdf5
