#include "platform/framework/Pages.h"

#include <new>

#include "platform/framework/win32/Api.h"

void* AllocatePages(std::size_t size) {
    void* const memory = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void FreePages(void* memory, std::size_t) noexcept {
    VirtualFree(memory, 0, MEM_RELEASE);
}
