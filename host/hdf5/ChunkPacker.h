// Packs the chunks of data sets before they are written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kelvarin::hdf5 {

// Does what the library's own filters "shuffle" and "deflate" do, so that every reader undoes it, but several
// times faster. Used for all data sets of a file in turn.
class ChunkPacker {
  public:
    ChunkPacker();

    // Packs a chunk of values of `width` bytes. The answer is valid until the next call; empty if the chunk
    // hardly shrinks and should rather be written as it is.
    std::span<const std::uint8_t> Pack(std::span<const std::uint8_t> chunk, std::size_t width);

  private:
    // Fills Packed; false if that isn't worth it.
    bool PackParts(std::span<const std::uint8_t> chunk, std::size_t width);

    // Each appends bytes or a part of the chunk to Packed; false if there is no room.
    bool Append(std::span<const std::uint8_t> bytes);
    bool Store(std::span<const std::uint8_t> part, bool isLast);
    bool Deflate(std::span<const std::uint8_t> part, bool isLast);

    // True if trying to shrink a part is a waste of time.
    bool IsNoise(std::span<const std::uint8_t> part);

    std::vector<std::uint8_t> Planes;  // of the chunk: the first byte of every value, then the second
    std::vector<std::uint8_t> Packed;
    std::size_t Used = 0;  // of Packed
    std::vector<std::uint8_t> Workspace;
};

}  // namespace kelvarin::hdf5
