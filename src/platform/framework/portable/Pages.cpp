#include "platform/framework/Pages.h"

#include <sys/mman.h>

#include <new>

void* AllocatePages(std::size_t size) {
    // Made at once, which costs a fraction of a page fault each. Large pages cost less still on a quiet machine, but
    // where memory is scattered or borrowed the search for them has been seen to double the time of a run.
    constexpr int Flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE;
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, Flags, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    return memory;
}

void FreePages(void* memory, std::size_t size) noexcept {
    munmap(memory, size);
}
