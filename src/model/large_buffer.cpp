#include "large_buffer.h"

#include <cstdlib>

#include <sys/mman.h>

void* allocateLargeBuffer(std::size_t bytes) {
    constexpr std::size_t LargePage = std::size_t(2) << 20;
    // From a quarter of a large page on, one large page is written sooner than the small
    // pages the buffer needs, each faulted in on its own; below, the waste is not worth it.
    if (bytes < LargePage / 4) return std::malloc(bytes);
    if (bytes > std::size_t(-1) - LargePage) return nullptr;
    const std::size_t rounded = (bytes + LargePage - 1) / LargePage * LargePage;
    void* memory = std::aligned_alloc(LargePage, rounded);
    if (memory) madvise(memory, rounded, MADV_HUGEPAGE);  // a hint: without it, small pages
    return memory;
}
