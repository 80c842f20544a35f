// Gathers values until they fill a chunk.
#pragma once

#include <memory>
#include <vector>

#include "host/hdf5/ChunkedDataset.h"

namespace kelvarin::hdf5 {

// Values of one type, one behind the other, on their way into a data set.
class ColumnWriter {
  public:
    // The place must outlive it.
    ColumnWriter(DatasetPlace& place, const ElementType& type) : Set(place, type), Width(type.Width) {}

    // Takes `count` values. The chunk's size, in values, is that of the first call.
    void Append(const void* values, std::size_t count, std::size_t chunkValues);

    // Writes the rest and gives the data set its place. One that never filled a chunk gets a chunk as small
    // as it is.
    void Finish(hid_t group, const char* name);

    std::uint64_t Count() const { return Full * ChunkValues + Used; }

  private:
    void Turn();

    ChunkedDataset Set;
    const std::size_t Width;
    std::size_t ChunkValues = 0;
    std::unique_ptr<std::uint8_t[]> Chunk;
    std::size_t Used = 0;    // values in Chunk
    std::uint64_t Full = 0;  // chunks written
};

// Which samples have a value: a data set of ones and zeros that exists, and has a chunk, only where there is
// a zero.
class FlagWriter {
  public:
    // The place must outlive it.
    explicit FlagWriter(DatasetPlace& place);

    // The next samples; a flag in `gaps` that isn't 0 is a sample without a value, null is none. The chunk's
    // size is that of the first call.
    void Append(const std::uint8_t* gaps, std::size_t count, std::size_t chunkValues);

    // Writes the rest and gives the data set its place, if there is one.
    void Finish(hid_t group, const char* name);

  private:
    void Turn(std::size_t chunkValues);

    ChunkedDataset Set;
    std::size_t ChunkValues = 0;
    std::vector<std::uint8_t> Flags;  // of the open chunk; empty if all are ones
    std::size_t Used = 0;
    std::uint64_t Full = 0;
};

}  // namespace kelvarin::hdf5
