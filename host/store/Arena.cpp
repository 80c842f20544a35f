#include "host/store/Arena.h"

#include <algorithm>

#include "platform/framework/Pages.h"

namespace kelvarin::store {

namespace {

constexpr std::size_t FirstChunk = 64 * 1024;
constexpr std::size_t LargestChunk = 1024 * 1024;

}  // namespace

Arena::~Arena() {
    for (const Chunk& chunk : Chunks) FreePages(chunk.Memory, chunk.Size);
}

void* Arena::Allocate(std::size_t size) {
    constexpr std::size_t Alignment = alignof(std::max_align_t);
    size = (size + Alignment - 1) / Alignment * Alignment;
    if (Chunks.empty() || Chunks.back().Size - Used < size) {
        const std::size_t next = Chunks.empty() ? FirstChunk : std::min(2 * Chunks.back().Size, LargestChunk);
        const std::size_t room = std::max(size, next);
        Chunks.push_back({static_cast<char*>(AllocatePages(room)), room});
        Used = 0;
    }
    char* const memory = Chunks.back().Memory + Used;
    Used += size;
    return memory;
}

}  // namespace kelvarin::store
