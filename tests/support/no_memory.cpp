#include "tests/support/no_memory.h"

#include <cstdlib>
#include <new>

int g_AllocationsLeft = -1;

#if !KVDRAW_THREAD_SANITIZER

void* operator new(std::size_t size) {
    void* const block = g_AllocationsLeft == 0 ? nullptr : std::malloc(size + 1);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    g_AllocationsLeft -= g_AllocationsLeft > 0 ? 1 : 0;
    return block;
}

// The sanitizers' own one would not go with the delete below.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept try {
    return operator new(size);
} catch (const std::bad_alloc&) {
    return nullptr;
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}

#endif
