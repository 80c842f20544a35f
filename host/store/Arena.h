// Memory for the blocks of a store.
#pragma once

#include <cstddef>
#include <vector>

namespace kelvarin::store {

// Gives memory away piece by piece and takes all of it back at its end. Grows by chunks that double, each
// filled up before the next is asked for.
class Arena {
  public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena();

    // `size` bytes, aligned for every fundamental type; not initialised.
    void* Allocate(std::size_t size);

  private:
    struct Chunk {
        char* Memory;
        std::size_t Size;
    };

    std::vector<Chunk> Chunks;
    std::size_t Used = 0;  // of the last chunk
};

}  // namespace kelvarin::store
