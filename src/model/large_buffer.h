#pragma once

#include <cstddef>

// Memory for a large buffer that is written whole soon after it is taken: a level's grid, a
// canvas, a picture. From 512 KiB on it is aligned to and rounded up to 2 MiB and offered to
// the kernel for 2 MiB pages, so that the first write takes one page fault a 2 MiB instead of
// one a 4 KiB; in a virtual machine a fault costs more than writing its page. Smaller buffers
// come from the heap. Null when there is no memory.
void* allocateLargeBuffer(std::size_t bytes);
// Frees a buffer of allocateLargeBuffer, given the same size.
void freeLargeBuffer(void* memory, std::size_t bytes);
