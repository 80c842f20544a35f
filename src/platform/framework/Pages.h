// Memory by the page, straight from the operating system.
#pragma once

#include <cstddef>

// Size and alignment of the largest pages that are asked for. Memory in large pages costs far fewer page
// faults and address translations than the heap's.
constexpr std::size_t LargePage = std::size_t{2} << 20;

// `count` large pages of memory, aligned to their size; untouched memory takes no room. Raises
// std::bad_alloc.
void* AllocatePages(std::size_t count);

// Gives them back.
void FreePages(void* memory, std::size_t count) noexcept;
