#pragma once

#include "large_buffer.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

// For grids that are written whole right after they are made: new elements get no value, so
// growing costs no pass of zeroes, and a large grid gets large pages (allocateLargeBuffer).
template <class T>
struct GridAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = GridAllocator<U>;
    };
    T* allocate(std::size_t count) {
        if (count > std::size_t(-1) / sizeof(T)) throw std::bad_array_new_length();
        void* memory = allocateLargeBuffer(count * sizeof(T));
        if (!memory) throw std::bad_alloc();
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, std::size_t count) { freeLargeBuffer(memory, count * sizeof(T)); }
    template <class U>
    void construct(U* place) {
        ::new (static_cast<void*>(place)) U;
    }
    template <class U, class... Args>
    void construct(U* place, Args&&... args) {
        ::new (static_cast<void*>(place)) U(std::forward<Args>(args)...);
    }
};
