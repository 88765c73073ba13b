#include "support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> counting = false;
std::atomic<std::size_t> taken = 0;

void* Take(std::size_t size) {
    if (counting)
        ++taken;
    if (void* const memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) {
    return Take(size);
}
void* operator new[](std::size_t size) {
    return Take(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace qor::test {

AllocationCount::AllocationCount() {
    taken = 0;
    counting = true;
}

AllocationCount::~AllocationCount() {
    counting = false;
}

std::size_t AllocationCount::Taken() const {
    return taken;
}

} // namespace qor::test
