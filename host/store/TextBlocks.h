// Texts of UTF-16 one after the other, in blocks that never move.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "host/store/Blocks.h"

namespace kelvarin::store {
// Keeps a text whose characters all lie below 256 in one byte each: that is most texts of measurement files.
class TextBlocks {
  public:
    // The arena must outlive the texts.
    explicit TextBlocks(Arena& memory) : Memory(memory) {}

    // Copies `length` units; true if they were kept narrow.
    bool Append(const char16_t* text, std::size_t length);

    // The bytes of the text appended last, by its length and by what Append returned.
    std::string Last(std::size_t length, bool isNarrow) const;

    // Takes over the texts of another object, which is empty afterwards and keeps the room that it has. The
    // memory of both must outlive this one; that of the other is to be retained.
    void Take(TextBlocks& other) {
        if (other.Blocks.empty()) return;
        if (other.Blocks.back().Used == 0) {
            other.Retained = other.Blocks.back();
            return;
        }
        const auto hasTexts = [](const Block& block) { return block.Used != 0; };
        std::copy_if(other.Blocks.begin(), other.Blocks.end(), std::back_inserter(Blocks), hasTexts);
        // The rest of the last block's room stays with the other.
        Block& last = Blocks.back();
        other.Retained = {last.Bytes + last.Used, 0, last.Size - last.Used};
        other.Blocks.assign(1, other.Retained);
        last.Size = last.Used;
    }

    // Forgets all texts, and the memory that they had but for the room kept when texts were taken over.
    void Clear() {
        Blocks.clear();
        if (Retained.Size != 0) Blocks.push_back(Retained);
    }

    // Reads the texts in order, each by its length and by what Append returned.
    class Reader {
      public:
        // From a place on where another reader has come to; texts may have been appended since.
        explicit Reader(const TextBlocks& texts, std::size_t block = 0, std::size_t offset = 0)
            : Texts(texts), Current(block), At(offset) {}

        std::size_t Block() const { return Current; }
        std::size_t Offset() const { return At; }

        // The text in UTF-16, valid until the next call.
        const char16_t* Next(std::size_t length, bool isNarrow);

        // The same text as it is kept, valid as long as the texts: a byte a character if it is narrow, else
        // the bytes of its units. Never null.
        const char* NextBytes(std::size_t length, bool isNarrow);

      private:
        const TextBlocks& Texts;
        std::size_t Current;
        std::size_t At;
        std::u16string Text;
    };

  private:
    struct Block {
        char* Bytes;
        std::size_t Used, Size;
    };

    // Room for so many bytes.
    char* Reserve(std::size_t size) {
        if (Blocks.empty() || Blocks.back().Size - Blocks.back().Used < size) AddBlock(size);
        return Blocks.back().Bytes + Blocks.back().Used;
    }
    void AddBlock(std::size_t size);

    Arena& Memory;
    std::vector<Block> Blocks;
    Block Retained{};  // without texts
};
}  // namespace kelvarin::store
