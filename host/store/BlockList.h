// Values of one type in blocks that never move and are not destroyed one by one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "host/store/Arena.h"

namespace kelvarin::store {

// Takes values one by one. When a block is full its owner either keeps it and goes on in another, or forgets
// it: the memory then stays that of one block, however many values come.
template <class Value>
class BlockList {
  public:
    // The arena must outlive the list.
    explicit BlockList(Arena& memory) : Memory(memory) {}

    bool IsFull() const { return Next == End; }

    // There must be room.
    void Append(Value value) { *Next++ = value; }

    // The values of the block that is being filled.
    std::span<const Value> Open() const { return {Begin, static_cast<std::size_t>(Next - Begin)}; }

    // Makes room. Blocks that are kept grow, so that short lists stay small and long ones have few blocks.
    void Turn(bool keep) {
        if (!Blocks.empty() && !keep) {
            Next = Begin;
            return;
        }
        const std::size_t size = std::min(FirstSize << std::min(Blocks.size(), MostDoublings), LargestSize);
        Begin = Next = static_cast<Value*>(Memory.Allocate(size * sizeof(Value)));
        Blocks.push_back({Begin, size});
        End = Begin + size;
    }

    // Calls `visit` with each value of the blocks kept and of the open one, in order, while it answers true.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (const Block& block : Blocks) {
            const Value* const end = block.Begin == Begin ? Next : block.Begin + block.Size;
            for (const Value* value = block.Begin; value != end; ++value) {
                if (!visit(*value)) return;
            }
        }
    }

  private:
    struct Block {
        Value* Begin;
        std::size_t Size;
    };

    static constexpr std::size_t FirstSize = 64;
    static constexpr std::size_t MostDoublings = 7;
    static constexpr std::size_t LargestSize = FirstSize << MostDoublings;

    Arena& Memory;
    std::vector<Block> Blocks;
    Value* Begin = nullptr;  // of the open block
    Value* Next = nullptr;
    Value* End = nullptr;
};

}  // namespace kelvarin::store
