#include "host/store/Blocks.h"

#include <bit>

#include "platform/framework/Pages.h"

namespace kelvarin::store {
namespace {
constexpr std::size_t FirstChunk = 64 * 1024;
constexpr std::size_t LargestChunk = 1024 * 1024;

// The least of 1, 2, 4 and 8 bytes that hold each value with its sign.
std::uint32_t WidthOf(std::span<const std::int64_t> values) {
    std::uint64_t used = 0;
    for (const std::int64_t value : values) used |= static_cast<std::uint64_t>(value ^ (value >> 63));
    const auto bits = static_cast<unsigned>(std::bit_width(used)) + 1;
    return bits <= 8 ? 1 : bits <= 16 ? 2 : bits <= 32 ? 4 : 8;
}

// Calls `use` with an object of the integer type of this width.
template <class Use>
auto WithWidth(std::uint32_t width, Use use) {
    switch (width) {
        case 1:
            return use(std::int8_t{});
        case 2:
            return use(std::int16_t{});
        case 4:
            return use(std::int32_t{});
        default:
            return use(std::int64_t{});
    }
}
}  // namespace

Arena::~Arena() {
    for (const Chunk& chunk : Chunks) FreePages(chunk.Memory, chunk.Size);
}

void* Arena::Allocate(std::size_t size, std::size_t alignment) {
    Used = (Used + alignment - 1) / alignment * alignment;
    while (Current < Chunks.size() && Chunks[Current].Size < Used + size) {
        ++Current;
        Used = 0;
    }
    if (Current == Chunks.size()) {
        const std::size_t next = Chunks.empty() ? FirstChunk : std::min(2 * Chunks.back().Size, LargestChunk);
        const std::size_t room = std::max(size, next);
        Chunks.push_back({static_cast<char*>(AllocatePages(room)), room});
    }
    char* const memory = Chunks[Current].Memory + Used;
    Used += size;
    return memory;
}

KeptBlock PackIntegers(std::span<const std::int64_t> values, Arena& memory) {
    const std::uint32_t width = WidthOf(values);
    void* const packed = memory.Allocate(values.size() * width);
    WithWidth(width, [&]<class Narrow>(Narrow) {
        auto* const narrow = static_cast<Narrow*>(packed);
        for (std::size_t i = 0; i < values.size(); ++i) narrow[i] = static_cast<Narrow>(values[i]);
    });
    return {packed, static_cast<std::uint32_t>(values.size()), width};
}

void UnpackIntegers(const KeptBlock& block, std::int64_t* values) {
    WithWidth(block.Width, [&]<class Narrow>(Narrow) {
        const auto* const narrow = static_cast<const Narrow*>(block.Values);
        std::copy(narrow, narrow + block.Count, values);
    });
}

std::int64_t UnpackInteger(const KeptBlock& block, std::size_t index) {
    return WithWidth(block.Width, [&]<class Narrow>(Narrow) {
        return std::int64_t{static_cast<const Narrow*>(block.Values)[index]};
    });
}
}  // namespace kelvarin::store
