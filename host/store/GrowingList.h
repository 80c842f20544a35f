// A list that one thread lengthens while others read what was in it before.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <memory>

namespace kelvarin::store {
// Values never move. Whoever lengthens the list tells the others of new values in a way that orders the
// threads, such as a lock or a queue; a value that others know of isn't changed.
template <class Value>
class GrowingList {
  public:
    Value& operator[](std::size_t index) { return Chunks[ChunkOf(index)][PlaceOf(index)]; }
    const Value& operator[](std::size_t index) const { return Chunks[ChunkOf(index)][PlaceOf(index)]; }

    // Makes room for so many values in all, which are not initialised. Raises std::bad_alloc.
    void MakeRoom(std::size_t count) {
        if (count == 0) return;
        for (std::size_t chunk = 0; chunk <= ChunkOf(count - 1); ++chunk) {
            if (Chunks[chunk] == nullptr)
                Chunks[chunk] = std::make_unique_for_overwrite<Value[]>(FirstSize << chunk);
        }
    }

  private:
    // Each chunk is twice as long as the one before: its number follows from the highest bit of the index.
    static constexpr std::size_t FirstSize = 8;
    static constexpr std::size_t MostChunks = 44;

    static std::size_t ChunkOf(std::size_t index) {
        return static_cast<std::size_t>(std::bit_width(index / FirstSize + 1)) - 1;
    }
    static std::size_t PlaceOf(std::size_t index) {
        return index - FirstSize * ((std::size_t{1} << ChunkOf(index)) - 1);
    }

    std::array<std::unique_ptr<Value[]>, MostChunks> Chunks;
};
}  // namespace kelvarin::store
