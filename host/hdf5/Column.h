// A data set of one dimension, written and read block by block. All operations raise Hdf5Error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/hdf5/ChunkPacker.h"
#include "host/hdf5/Hdf5Library.h"

namespace kelvarin::hdf5 {

// The element type, in the file and in memory, for a type code of the store; of a text it is that of its code
// units.
hid_t ElementTypeOf(std::uint32_t type);

// What the data sets of a device share while they are written.
struct DatasetPlace {
    hid_t Group;  // holds them until they get their place
    ChunkPacker& Packer;
    std::size_t ChunkValues = 0;  // samples of a chunk, set before the first Append
    std::uint64_t Made = 0;       // data sets
};

// A data set that grows by chunks. It is written past the library's own filters, and open only during a
// write: an open one takes twenty kilobytes, and there may be ten thousand.
class ColumnWriter {
  public:
    enum EContent { Values, ValuesOfTexts, Flags };

    // The place must outlive it. Flags are bytes that mostly are 1: a chunk without another value is left
    // out, and so is a data set without such a chunk.
    ColumnWriter(DatasetPlace& place, hid_t type, EContent content = Values);

    // Takes `count` elements; for Flags null is as many times 1.
    void Append(const void* elements, std::size_t count);

    // Writes the rest and moves the data set into a group. One that never filled a chunk gets a chunk as
    // small as it is.
    void Finish(hid_t group, const char* name);

    // Elements so far.
    std::uint64_t Count() const { return Full * ChunkValues + Used; }

  private:
    void Flush();
    void WriteChunk();
    void Create();

    DatasetPlace& Place;
    const hid_t Type;
    const std::size_t Width;  // bytes of an element
    const EContent Content;
    std::string Name;  // of the data set in the place's group; empty: not made yet
    std::size_t ChunkValues = 0;
    std::unique_ptr<std::uint8_t[]> Chunk;
    std::size_t Used = 0;    // elements in Chunk
    std::uint64_t Full = 0;  // chunks before it
};

// Reads a data set from its first element on. It is open only while a block is read.
class ColumnReader {
  public:
    // The data set at a path below a group, which must outlive it. It must have elements of exactly this
    // type.
    ColumnReader(hid_t group, std::string path, hid_t type);

    // All elements.
    std::uint64_t Count() const { return All; }

    // The bytes of the next elements, 1 to `most` of them; empty at the end. Valid until the next call.
    std::span<const std::uint8_t> Next(std::size_t most);

    // The bytes of exactly `count` elements; fewer are an error.
    std::vector<std::uint8_t> Take(std::size_t count);

  private:
    void ReadBlock();

    const hid_t Group;
    const std::string Path;
    const hid_t Type;
    const std::size_t Width;  // bytes of an element
    std::uint64_t All = 0;
    std::size_t BlockValues = 1;
    std::vector<std::uint8_t> Block;
    std::size_t At = 0;      // bytes of Block that were given out
    std::uint64_t Read = 0;  // elements of this block and those before
};

}  // namespace kelvarin::hdf5
