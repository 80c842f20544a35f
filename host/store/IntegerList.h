// 64-bit integers in as little room as they need.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "host/store/Arena.h"

namespace kelvarin::store {

// What BlockList is, but a block that is kept is packed to one, two, four or eight bytes a value, by its
// largest one: most measured integers are small, and memory that isn't touched costs no time either.
class IntegerList {
  public:
    // The arena must outlive the list.
    explicit IntegerList(Arena& memory) : Memory(memory) {}

    bool IsFull() const { return Next == End; }
    void Append(std::int64_t value) { *Next++ = value; }
    std::span<const std::int64_t> Open() const { return {Begin, static_cast<std::size_t>(Next - Begin)}; }
    void Turn(bool keep);

    // Reads the values of the blocks kept and of the open one from the first on. The list must outlive it and
    // not grow meanwhile.
    class Reader {
      public:
        explicit Reader(const IntegerList& list) : List(list) {}

        // The next value; there must be one.
        std::int64_t Next();

      private:
        const IntegerList& List;
        std::size_t Block = 0;  // its place among List.Blocks; behind them is the open one
        std::size_t At = 0;
    };

    // Calls `visit` with each value in order, while it answers true.
    template <class Visit>
    void ForEach(Visit visit) const {
        Reader reader(*this);
        for (std::uint64_t left = Kept + Open().size(); left != 0; --left) {
            if (!visit(reader.Next())) return;
        }
    }

  private:
    struct Packed {
        const void* Values;
        std::uint32_t Count;
        std::uint32_t Width;  // bytes of a value
    };

    Arena& Memory;
    std::vector<Packed> Blocks;
    std::uint64_t Kept = 0;         // values in them
    std::int64_t* Begin = nullptr;  // of the open block
    std::int64_t* Next = nullptr;
    std::int64_t* End = nullptr;
};

}  // namespace kelvarin::store
