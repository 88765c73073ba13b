#pragma once

#include <cstddef>

namespace qor::test {

/// Counts what the whole program takes from the free store while it lives.
class AllocationCount {
public:
    AllocationCount();
    ~AllocationCount();
    AllocationCount(const AllocationCount&) = delete;
    AllocationCount& operator=(const AllocationCount&) = delete;

    [[nodiscard]] std::size_t Taken() const;
    /// The most bytes that were in use at a time, of those taken meanwhile.
    [[nodiscard]] std::size_t Peak() const;
};

} // namespace qor::test
