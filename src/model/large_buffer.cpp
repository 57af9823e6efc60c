#include "large_buffer.h"

#include <cstdint>
#include <cstdlib>

#include <sys/mman.h>

namespace {
constexpr std::size_t LargePage = std::size_t(2) << 20;

// From a quarter of a large page on, one large page is written sooner than the small pages
// the buffer needs, each faulted in on its own; below, the waste is not worth it.
bool isLarge(std::size_t bytes) {
    return bytes >= LargePage / 4;
}

std::size_t wholeLargePages(std::size_t bytes) {
    return (bytes + LargePage - 1) / LargePage * LargePage;
}
}  // namespace

void* allocateLargeBuffer(std::size_t bytes) {
    if (!isLarge(bytes)) return std::malloc(bytes);
    if (bytes > std::size_t(-1) - 2 * LargePage) return nullptr;
    const std::size_t size = wholeLargePages(bytes);
    // Mapped on its own with a large page to spare, then cut to a large page's boundary.
    void* mapped =
        mmap(nullptr, size + LargePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) return nullptr;
    const auto start = reinterpret_cast<std::uintptr_t>(mapped);
    const std::uintptr_t aligned = (start + LargePage - 1) / LargePage * LargePage;
    if (aligned > start) munmap(mapped, aligned - start);
    munmap(reinterpret_cast<void*>(aligned + size), start + LargePage - aligned);
    void* memory = reinterpret_cast<void*>(aligned);
    madvise(memory, size, MADV_HUGEPAGE);  // a hint: without it, small pages
    // A child process never needs it: libraries fork only to start another program (D-Bus
    // does, when there is no session bus). Shared with a child meanwhile, every page written
    // would be faulted in again, 4 KiB at a time.
    madvise(memory, size, MADV_DONTFORK);
    return memory;
}

void freeLargeBuffer(void* memory, std::size_t bytes) {
    if (!isLarge(bytes)) return std::free(memory);
    if (memory) munmap(memory, wholeLargePages(bytes));
}
