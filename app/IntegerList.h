// 64-bit integers in as little room as they need.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "app/Arena.h"

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

    template <class Visit>
    void ForEach(Visit visit) const {
        for (const Packed& block : Blocks) {
            for (std::size_t i = 0; i < block.Count; ++i) {
                if (!visit(Unpack(block, i))) return;
            }
        }
        for (const std::int64_t value : Open()) {
            if (!visit(value)) return;
        }
    }

  private:
    struct Packed {
        const void* Values;
        std::uint32_t Count;
        std::uint32_t Width;  // bytes of a value
    };

    static std::int64_t Unpack(const Packed& block, std::size_t index);

    Arena& Memory;
    std::vector<Packed> Blocks;
    std::int64_t* Begin = nullptr;  // of the open block
    std::int64_t* Next = nullptr;
    std::int64_t* End = nullptr;
};
