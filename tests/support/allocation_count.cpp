#include "support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::atomic<bool> counting = false;
std::atomic<std::size_t> taken = 0;
std::atomic<std::ptrdiff_t> inUse = 0; ///< bytes
std::atomic<std::ptrdiff_t> peak = 0;

void Count(std::ptrdiff_t bytes) {
    const std::ptrdiff_t now = inUse += bytes;
    if (now > peak)
        peak = now; // the tests that ask have one thread
}

void* Take(std::size_t size) {
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    if (counting) {
        ++taken;
        Count(static_cast<std::ptrdiff_t>(::malloc_usable_size(memory)));
    }
    return memory;
}

void Release(void* memory) noexcept {
    if (counting)
        Count(-static_cast<std::ptrdiff_t>(::malloc_usable_size(memory)));
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size) {
    return Take(size);
}
void* operator new[](std::size_t size) {
    return Take(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { // sorting takes its room by it
    try {
        return Take(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    Release(memory);
}
void operator delete[](void* memory) noexcept {
    Release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Release(memory);
}

namespace qor::test {

AllocationCount::AllocationCount() {
    taken = 0;
    inUse = peak = 0;
    counting = true;
}

AllocationCount::~AllocationCount() {
    counting = false;
}

std::size_t AllocationCount::Taken() const {
    return taken;
}

std::size_t AllocationCount::Peak() const {
    return static_cast<std::size_t>(peak.load());
}

} // namespace qor::test
