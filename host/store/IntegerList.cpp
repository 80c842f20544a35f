#include "host/store/IntegerList.h"

#include <algorithm>
#include <bit>

namespace kelvarin::store {

namespace {

constexpr std::size_t FirstSize = 64;
constexpr std::size_t LargestSize = 1024;

// The least of 1, 2, 4 and 8 bytes that hold each value with its sign.
std::uint32_t WidthOf(std::span<const std::int64_t> values) {
    std::uint64_t used = 0;
    for (const std::int64_t value : values) used |= static_cast<std::uint64_t>(value ^ (value >> 63));
    const auto bits = static_cast<unsigned>(std::bit_width(used)) + 1;
    return bits <= 8 ? 1 : bits <= 16 ? 2 : bits <= 32 ? 4 : 8;
}

template <class Narrow>
void* PackAs(std::span<const std::int64_t> values, Arena& memory) {
    auto* const packed = static_cast<Narrow*>(memory.Allocate(values.size() * sizeof(Narrow)));
    for (std::size_t i = 0; i < values.size(); ++i) packed[i] = static_cast<Narrow>(values[i]);
    return packed;
}

void* Pack(std::span<const std::int64_t> values, std::uint32_t width, Arena& memory) {
    switch (width) {
        case 1:
            return PackAs<std::int8_t>(values, memory);
        case 2:
            return PackAs<std::int16_t>(values, memory);
        case 4:
            return PackAs<std::int32_t>(values, memory);
        default:
            return PackAs<std::int64_t>(values, memory);
    }
}

}  // namespace

void IntegerList::Turn(bool keep) {
    if (keep && Next != Begin) {
        const std::uint32_t width = WidthOf(Open());
        Blocks.push_back({Pack(Open(), width, Memory), static_cast<std::uint32_t>(Open().size()), width});
        Kept += Open().size();
    }
    const auto size = static_cast<std::size_t>(End - Begin);
    if (size == 0 || (keep && size < LargestSize)) {
        const std::size_t next = std::max(FirstSize, 2 * size);
        Begin = static_cast<std::int64_t*>(Memory.Allocate(next * sizeof(std::int64_t)));
        End = Begin + next;
    }
    Next = Begin;
}

std::int64_t IntegerList::Reader::Next() {
    if (Block < List.Blocks.size() && At == List.Blocks[Block].Count) {
        ++Block;
        At = 0;
    }
    const std::size_t at = At++;
    if (Block == List.Blocks.size()) return List.Begin[at];
    const Packed& block = List.Blocks[Block];
    switch (block.Width) {
        case 1:
            return static_cast<const std::int8_t*>(block.Values)[at];
        case 2:
            return static_cast<const std::int16_t*>(block.Values)[at];
        case 4:
            return static_cast<const std::int32_t*>(block.Values)[at];
        default:
            return static_cast<const std::int64_t*>(block.Values)[at];
    }
}

}  // namespace kelvarin::store
