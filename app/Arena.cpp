#include "app/Arena.h"

#include <algorithm>

#include "platform/framework/Pages.h"

Arena::~Arena() {
    for (const Chunk& chunk : Chunks) FreePages(chunk.Memory, chunk.Pages);
}

void* Arena::Allocate(std::size_t size) {
    constexpr std::size_t Alignment = alignof(std::max_align_t);
    size = (size + Alignment - 1) / Alignment * Alignment;
    if (Chunks.empty() || Chunks.back().Pages * LargePage - Used < size) {
        const std::size_t pages = std::max<std::size_t>(1, (size + LargePage - 1) / LargePage);
        Chunks.push_back({static_cast<char*>(AllocatePages(pages)), pages});
        Used = 0;
    }
    char* const memory = Chunks.back().Memory + Used;
    Used += size;
    return memory;
}
