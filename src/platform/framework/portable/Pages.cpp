#include "platform/framework/Pages.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

void* AllocatePages(std::size_t count) {
    void* const memory = std::aligned_alloc(LargePage, count * LargePage);
    if (memory == nullptr) throw std::bad_alloc();
    // A wish: a system without large pages gives small ones.
    madvise(memory, count * LargePage, MADV_HUGEPAGE);
    return memory;
}

void FreePages(void* memory, std::size_t) noexcept {
    std::free(memory);
}
