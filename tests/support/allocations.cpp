#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;

void* counted(std::size_t size) noexcept {
    ++allocations;
    return std::malloc(size ? size : 1);
}

void* orthrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}
} // namespace

std::size_t allocationcount() { return allocations; }

// Every form is replaced, so that no memory of one allocator is given back to another.
void* operator new(std::size_t size) { return orthrow(counted(size)); }
void* operator new[](std::size_t size) { return orthrow(counted(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return counted(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return counted(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
