// Memory by the page, straight from the operating system.
#pragma once

#include <cstddef>

// `size` bytes in pages that are made at once, where the system can, not one by one at their first touch.
// Raises std::bad_alloc.
void* AllocatePages(std::size_t size);

// Gives them back; `size` as they were asked for.
void FreePages(void* memory, std::size_t size) noexcept;
