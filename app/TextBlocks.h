// Texts one behind the other, in blocks that never move.
#pragma once

#include <cstddef>
#include <vector>

#include "app/Arena.h"

class TextBlocks {
  public:
    // The arena must outlive the texts.
    explicit TextBlocks(Arena& memory) : Memory(memory) {}

    // Copies `size` bytes.
    void Append(const void* data, std::size_t size);

    // Reads the texts in order, each by its size.
    class Reader {
      public:
        explicit Reader(const TextBlocks& texts) : Texts(texts) {}
        const char* Next(std::size_t size);

      private:
        const TextBlocks& Texts;
        std::size_t Block = 0;
        std::size_t At = 0;
    };

  private:
    struct Block {
        char* Bytes;
        std::size_t Used, Size;
    };

    Arena& Memory;
    std::vector<Block> Blocks;
};
