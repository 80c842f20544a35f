// Counts what a run allocates. Replaces the allocation functions of the program it is linked into.
#include "bench/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::uint64_t allocations = 0;

}  // namespace

std::uint64_t CountAllocations() {
    return allocations;
}

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
